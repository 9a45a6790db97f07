#include "tests/toolbar/ToolbarSupport.h"

namespace zor {
namespace {

using test::widgetsOn;
using ::testing::ElementsAre;

const Font regular16{.family = "Helvetica Neue", .size = 16};
const Font bold16{.family = "Helvetica Neue", .size = 16, .bold = true};

class CurrentWeather : public test::ToolbarTest {
protected:
    void build() {
        dashboard = toolbar->currentWeatherPlugIn();
        widgets = widgetsOn(dashboard->editView());
    }
    /// Fixed texts, and the names of properties in brackets.
    std::vector<std::string> contents() {
        std::vector<std::string> found;
        for (const auto& widget : widgets) {
            const auto field = targetOf(widget);
            found.push_back(field->useProperty() ? "[" + field->propertyName().value_or("") + "]"
                                                 : field->stringToDraw());
        }
        return found;
    }
    void expectFrame(std::size_t index, const Rect& expected) {
        ASSERT_LT(index, widgets.size());
        const Rect frame = widgets[index]->frame();
        EXPECT_NEAR(frame.x, expected.x, 1e-9) << index;
        EXPECT_NEAR(frame.y, expected.y, 1e-9) << index;
        EXPECT_NEAR(frame.width, expected.width, 1e-9) << index;
        EXPECT_NEAR(frame.height, expected.height, 1e-9) << index;
    }
    /// The y of the widget with that content.
    double top(const std::string& content) {
        const auto all = contents();
        const auto found = std::ranges::find(all, content);
        return found == all.end() ? -1 : widgets[static_cast<std::size_t>(found - all.begin())]->frame().y;
    }

    std::shared_ptr<ZORDashboardPlugIn> dashboard;
    WidgetList widgets;
};

TEST_F(CurrentWeather, AWholeStationFillsEveryRow) {
    give({"outdoorTemperature", "outdoorHeatIndex", "outdoorDewPoint", "outdoorHumidity", "rainRate",
          "barometricPressureRelative"});
    build();
    EXPECT_THAT(contents(),
                ElementsAre("Current Conditions", "[outdoorTemperature]", "Feels like", "[outdoorHeatIndex]",
                            "Dew Point:", "[outdoorDewPoint]", "Humidity:", "[outdoorHumidity]",
                            "Precip Rate:", "[rainRate]", "Pressure:", "[barometricPressureRelative]"));
}

// The toolkit of the tests measures half the font's size for each character, six tenths in bold, 1.2 times its size
// high.
TEST_F(CurrentWeather, RowsFollowTheLayoutCursor) {
    give({"outdoorTemperature", "outdoorHeatIndex", "outdoorDewPoint", "outdoorHumidity", "rainRate",
          "barometricPressureRelative"});
    build();
    expectFrame(0, {10, 12, 277.2, 36.96});
    expectFrame(1, {10, 56.352, 320, 96});
    expectFrame(2, {10, 161.952, 132, 31.68});
    expectFrame(3, {142, 161.952, 120, 31.68});
    expectFrame(4, {10, 209.472, 160, 21.12});
    expectFrame(5, {140, 209.472, 57.6, 21.12});
    expectFrame(6, {10, 241.152, 144, 21.12});
    expectFrame(7, {140, 241.152, 120, 21.12});
    expectFrame(8, {10, 272.832, 192, 21.12});
    expectFrame(9, {140, 272.832, 120, 21.12});
    expectFrame(10, {10, 304.512, 144, 21.12});
    expectFrame(11, {140, 304.512, 120, 21.12});
    EXPECT_NEAR(dashboard->editView()->frame().width, 340, 1e-9);
    EXPECT_NEAR(dashboard->editView()->frame().height, 337.632, 1e-9);
}

TEST_F(CurrentWeather, FontsAlignmentsAndFormats) {
    give({"outdoorTemperature", "outdoorHeatIndex", "outdoorDewPoint", "outdoorHumidity", "rainRate",
          "barometricPressureRelative"});
    build();
    const std::vector<Font> fonts{{.family = "Helvetica Neue", .size = 28},
                                  {.family = "Helvetica Neue", .size = 0.8 * 96},
                                  {.family = "Helvetica Neue", .size = 24},
                                  {.family = "Helvetica Neue", .size = 24},
                                  regular16,
                                  bold16,
                                  regular16,
                                  bold16,
                                  regular16,
                                  bold16,
                                  regular16,
                                  bold16};
    ASSERT_EQ(widgets.size(), fonts.size());
    for (std::size_t i = 0; i < widgets.size(); ++i) {
        const auto field = targetOf(widgets[i]);
        ASSERT_TRUE(field);
        EXPECT_EQ(field->font().family, fonts[i].family) << i;
        EXPECT_DOUBLE_EQ(field->font().size, fonts[i].size) << i;
        EXPECT_EQ(field->font().bold, fonts[i].bold) << i;
        EXPECT_EQ(field->alignment(), i == 1 ? TextAlignment::center : TextAlignment::left) << i;
        if (field->useProperty()) {
            EXPECT_EQ(field->propertyFormat(), "unitStringValueWithUnitShort") << i;
            EXPECT_EQ(field->property(), property(*field->propertyName())) << i;
        } else {
            EXPECT_EQ(field->property(), nullptr) << i;
        }
    }
}

TEST_F(CurrentWeather, OnlyAnOutdoorTemperatureGivesHeadingAndTemperature) {
    give({"outdoorTemperature"});
    build();
    EXPECT_THAT(contents(), ElementsAre("Current Conditions", "[outdoorTemperature]"));
    EXPECT_EQ(targetOf(widgets[1])->alignment(), TextAlignment::center);
}

TEST_F(CurrentWeather, AStationWithoutAnythingGivesTheHeading) {
    build();
    EXPECT_THAT(contents(), ElementsAre("Current Conditions"));
    expectFrame(0, {10, 12, 277.2, 36.96});
    EXPECT_NEAR(dashboard->editView()->frame().width, 297.2, 1e-9);
    EXPECT_NEAR(dashboard->editView()->frame().height, 60.96, 1e-9);
}

TEST_F(CurrentWeather, WithoutHeatIndexTheDewPointLiesOneAndAHalfBandsBelowTheTemperature) {
    give({"outdoorTemperature", "outdoorDewPoint"});
    build();
    EXPECT_NEAR(top("Dew Point:") - top("[outdoorTemperature]"), 1.5 * 96, 1e-9);
    EXPECT_NEAR(top("Dew Point:"), 200.352, 1e-9);
}

TEST_F(CurrentWeather, WithoutATemperatureItsBandStaysEmpty) {
    give({"outdoorHeatIndex", "outdoorDewPoint"});
    build();
    EXPECT_THAT(contents(), ElementsAre("Current Conditions", "Feels like", "[outdoorHeatIndex]",
                                        "Dew Point:", "[outdoorDewPoint]"));
    EXPECT_NEAR(top("Feels like"), 161.952, 1e-9);
    EXPECT_NEAR(top("Dew Point:"), 209.472, 1e-9);
}

TEST_F(CurrentWeather, RowsCloseUpWhereOneIsMissing) {
    give({"outdoorHumidity", "barometricPressureAbsolute"});
    build();
    EXPECT_THAT(contents(), ElementsAre("Current Conditions", "Humidity:", "[outdoorHumidity]",
                                        "Pressure:", "[barometricPressureAbsolute]"));
    EXPECT_NEAR(top("Humidity:"), 200.352, 1e-9);
    EXPECT_NEAR(top("Pressure:"), 232.032, 1e-9);
}

TEST_F(CurrentWeather, RelativePressureComesBeforeAbsolute) {
    give({"barometricPressureAbsolute", "barometricPressureRelative"});
    build();
    EXPECT_THAT(contents(), ElementsAre("Current Conditions", "Pressure:", "[barometricPressureRelative]"));
}

TEST_F(CurrentWeather, TemperatureKeysAreTriedInOrder) {
    for (const auto* key : {"indoorTemperature", "temperature1", "temperature", "outdoorTemperature"}) {
        give({key});
        build();
        EXPECT_EQ(contents().at(1), "[" + std::string(key) + "]");
    }
}

TEST_F(CurrentWeather, OutdoorKeysComeBeforePlainOnes) {
    give({"heatIndex", "dewPoint", "humidity"});
    build();
    EXPECT_THAT(contents(), ElementsAre("Current Conditions", "Feels like", "[heatIndex]", "Dew Point:", "[dewPoint]",
                                        "Humidity:", "[humidity]"));
    give({"outdoorHeatIndex", "outdoorDewPoint", "outdoorHumidity"});
    build();
    EXPECT_THAT(contents(), ElementsAre("Current Conditions", "Feels like", "[outdoorHeatIndex]",
                                        "Dew Point:", "[outdoorDewPoint]", "Humidity:", "[outdoorHumidity]"));
}

TEST_F(CurrentWeather, IsNamedLoadedAndInViewMode) {
    build();
    EXPECT_EQ(dashboard->title(), "Current Weather");
    EXPECT_TRUE(dashboard->isViewLoaded());
    EXPECT_FALSE(dashboard->editView()->editMode());
    EXPECT_EQ(dashboard->agent(), agent);
    EXPECT_EQ(dashboard->siteWindowController(), controller);
}

}  // namespace
}  // namespace zor
