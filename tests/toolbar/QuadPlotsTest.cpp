#include "tests/toolbar/ToolbarSupport.h"

namespace zor {
namespace {

using test::framesOf;
using test::widgetsOn;

class QuadPlots : public test::ToolbarTest {
protected:
    std::shared_ptr<ZORPlotView> plot(std::size_t index) {
        return targetOf<ZORPlotView>(widgetsOn(toolbar->quadPlotsPlugIn()->editView()).at(index));
    }
    /// The name of the property that a plot shows, empty without one.
    std::string shown(std::size_t index) {
        return ask(plot(index)->property(), [](const Property& property) { return property.propertyName(); });
    }
};

TEST_F(QuadPlots, FramesAreThoseOfTheTableWhateverTheStation) {
    const std::vector<Rect> frames{{10, 12, 480, 360}, {510, 12, 480, 360}, {10, 404, 480, 360}, {510, 404, 480, 360}};
    EXPECT_EQ(framesOf(widgetsOn(toolbar->quadPlotsPlugIn()->editView())), frames);
    give({"outdoorTemperature", "windSpeed"});
    EXPECT_EQ(framesOf(widgetsOn(toolbar->quadPlotsPlugIn()->editView())), frames);
}

TEST_F(QuadPlots, TheCanvasRepeatsTheMargins) {
    EXPECT_EQ(toolbar->quadPlotsPlugIn()->editView()->frame(), (Rect{0, 0, 1000, 776}));
}

TEST_F(QuadPlots, ItIsNamedLoadedAndInViewMode) {
    const auto dashboard = toolbar->quadPlotsPlugIn();
    EXPECT_EQ(dashboard->title(), "Quad Plots");
    EXPECT_TRUE(dashboard->isViewLoaded());
    EXPECT_FALSE(dashboard->editView()->editMode());
    EXPECT_EQ(dashboard->agent(), agent);
    EXPECT_EQ(dashboard->siteWindowController(), controller);
}

TEST_F(QuadPlots, EveryPlotHasTheAgentAndThePeriod) {
    for (std::size_t i = 0; i < 4; ++i) {
        ASSERT_TRUE(plot(i));
        EXPECT_EQ(plot(i)->period(), 0x70647464u);
        EXPECT_EQ(plot(i)->agent(), agent);
    }
}

TEST_F(QuadPlots, PlotsShowTemperatureHumidityWindAndDewPoint) {
    give({"dewPoint", "windSpeed", "humidity", "temperature", "outdoorTemperature", "outdoorHumidity",
          "outdoorDewPoint"});
    EXPECT_EQ(shown(0), "outdoorTemperature");
    EXPECT_EQ(shown(1), "outdoorHumidity");
    EXPECT_EQ(shown(2), "windSpeed");
    EXPECT_EQ(shown(3), "outdoorDewPoint");
    EXPECT_EQ(plot(0)->property(), property("outdoorTemperature"));
}

TEST_F(QuadPlots, TemperatureKeysAreTriedInOrder) {
    give({"indoorTemperature"});
    EXPECT_EQ(shown(0), "indoorTemperature");
    give({"temperature1"});
    EXPECT_EQ(shown(0), "temperature1");
    give({"temperature"});
    EXPECT_EQ(shown(0), "temperature");
    give({"outdoorTemperature"});
    EXPECT_EQ(shown(0), "outdoorTemperature");
}

TEST_F(QuadPlots, HumidityAndDewPointFallBack) {
    give({"humidity", "dewPoint"});
    EXPECT_EQ(shown(1), "humidity");
    EXPECT_EQ(shown(3), "dewPoint");
}

TEST_F(QuadPlots, WithoutAnyKeyAPlotIsUnbound) {
    give({"indoorHumidity", "windGust", "indoorDewPoint", "temperature2"});
    for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(shown(i), "");
}

}  // namespace
}  // namespace zor
