#include "host/instruments/StandardWidgets.h"

#include <gmock/gmock.h>

#include "host/instruments/ZORPlotView.h"
#include "host/station/PropertyKeys.h"
#include "tests/host/instruments/InstrumentSupport.h"

namespace zor {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class StandardWidgets : public ::testing::Test {
protected:
    void SetUp() override { FakeToolkit::install(); }

    std::shared_ptr<Agent> station(const std::vector<std::string_view>& keys) {
        auto agent = Agent::withName("Garden");
        for (const auto key : keys) {
            const auto naming = namingOfProperty(key);
            agent->addProperty(key, naming.displayName, naming.quantity);
        }
        return agent;
    }
    std::vector<std::shared_ptr<ZORWidgetHostView>> widgets(const std::shared_ptr<Agent>& agent) {
        std::vector<std::shared_ptr<ZORWidgetHostView>> result;
        for (const auto& view : standardWidgets(*agent)) {
            result.push_back(std::dynamic_pointer_cast<ZORWidgetHostView>(view));
        }
        return result;
    }
    std::vector<Rect> frames(const std::shared_ptr<Agent>& agent, std::string_view kind) {
        std::vector<Rect> result;
        for (const auto& widget : widgets(agent)) {
            if (widget->kind() == kind) result.push_back(widget->frame());
        }
        return result;
    }
    std::vector<std::string> properties(const std::shared_ptr<Agent>& agent, std::string_view kind) {
        std::vector<std::string> result;
        for (const auto& widget : widgets(agent)) {
            const auto client = std::dynamic_pointer_cast<PropertyClient>(widget->targetView());
            if (widget->kind() == kind && client) result.push_back(client->propertyName().value_or(""));
        }
        return result;
    }
    /// Within equal margins, no instrument on another but those on a box.
    void expectTidy(const std::shared_ptr<Agent>& agent) {
        const auto all = widgets(agent);
        Rect extent;
        for (const auto& widget : all) extent = unionRect(extent, widget->frame());
        EXPECT_EQ(extent.x, 20);
        EXPECT_EQ(extent.y, 20);
        EXPECT_EQ(extent.width, 1100);
        for (std::size_t first = 0; first < all.size(); ++first) {
            for (std::size_t second = first + 1; second < all.size(); ++second) {
                const Rect& a = all[first]->frame();
                const Rect& b = all[second]->frame();
                if (!intersectsRect(a, b)) continue;
                EXPECT_EQ(all[first]->kind(), "box");
                EXPECT_TRUE(containsRect(a, b)) << stringFromRect(a) << stringFromRect(b);
            }
        }
    }

    std::shared_ptr<Agent> full =
        station({kOutdoorTemperature, kOutdoorHumidity, kOutdoorDewPoint, kWindSpeed, kWindGust, kWindDirection,
                 kBarometricPressureRelative, kBarometricPressureAbsolute, kRainToday, kSolarRadiation});
};

TEST_F(StandardWidgets, GiveGaugesDisplaysAndPlots) {
    expectTidy(full);
    EXPECT_THAT(properties(full, "roundGauge"),
                ElementsAre("outdoorTemperature", "windSpeed", "windDirection", "barometricPressureRelative"));
    EXPECT_THAT(frames(full, "roundGauge"), ElementsAre(Rect{20, 76, 260, 260}, Rect{300, 76, 260, 260},
                                                        Rect{580, 76, 260, 260}, Rect{860, 76, 260, 260}));
    EXPECT_THAT(frames(full, "box"), ElementsAre(Rect{20, 356, 260, 116}, Rect{300, 356, 260, 116},
                                                 Rect{580, 356, 260, 116}, Rect{860, 356, 260, 116}));
    EXPECT_THAT(frames(full, "plotView"), ElementsAre(Rect{20, 492, 540, 220}, Rect{580, 492, 540, 220}));
    EXPECT_THAT(properties(full, "plotView"), ElementsAre("outdoorTemperature", "barometricPressureRelative"));
}

TEST_F(StandardWidgets, ShowHumidityAndDewPointInTheCustomFonts) {
    std::vector<std::pair<std::string, std::string>> shown;
    for (const auto& widget : widgets(full)) {
        const auto field = widget->targetView();
        if (widget->kind() != "textField" || !field->valueForKey("useProperty").asBool()) continue;
        const auto font = ValueConversion<Font>::from(field->valueForKey("font"));
        shown.emplace_back(field->valueForKey("propertyName").asString(), font ? font->family : "");
    }
    using Shown = std::pair<std::string, std::string>;
    EXPECT_THAT(shown, ElementsAre(Shown("outdoorHumidity", "LCDPHONE"), Shown("outdoorDewPoint", "Crysta"),
                                   Shown("rainToday", "LCDPHONE"), Shown("windGust", "Crysta")));
}

TEST_F(StandardWidgets, AreLinkedToTheStationsProperties) {
    for (const auto& widget : widgets(full)) {
        const auto client = std::dynamic_pointer_cast<PropertyClient>(widget->targetView());
        if (!client || !client->propertyName()) continue;
        EXPECT_EQ(client->property(), full->properties().find(*client->propertyName()));
    }
    for (const auto& widget : widgets(full)) {
        if (const auto plot = std::dynamic_pointer_cast<ZORPlotView>(widget->targetView())) {
            EXPECT_EQ(plot->agent(), full);
        }
    }
}

TEST_F(StandardWidgets, NameTheStation) {
    const auto first = widgets(full).front()->instrument();
    ASSERT_TRUE(first);
    EXPECT_EQ(first->text(), "Garden");
}

TEST_F(StandardWidgets, FillTheRowOfMissingGaugesWithAPlot) {
    const auto agent = station({kTemperature, kHumidity, kDewPoint, kBarometricPressureAbsolute});
    expectTidy(agent);
    EXPECT_THAT(properties(agent, "roundGauge"), ElementsAre("temperature", "barometricPressureAbsolute"));
    EXPECT_THAT(frames(agent, "plotView"),
                ElementsAre(Rect{580, 76, 540, 260}, Rect{20, 492, 540, 220}, Rect{580, 492, 540, 220}));
    EXPECT_THAT(properties(agent, "plotView"), ElementsAre("temperature", "barometricPressureAbsolute", "humidity"));
    EXPECT_THAT(frames(agent, "box"), ElementsAre(Rect{20, 356, 540, 116}, Rect{580, 356, 540, 116}));
}

TEST_F(StandardWidgets, CloseUpWhereARowIsMissing) {
    const auto onlyWind = station({kWindDirection});
    expectTidy(onlyWind);
    EXPECT_THAT(frames(onlyWind, "roundGauge"), ElementsAre(Rect{20, 76, 260, 260}));
    EXPECT_THAT(frames(onlyWind, "plotView"), ElementsAre(Rect{300, 76, 820, 260}));
    EXPECT_THAT(frames(onlyWind, "box"), IsEmpty());

    const auto onlyAir = station({kCarbonDioxide});
    expectTidy(onlyAir);
    EXPECT_THAT(frames(onlyAir, "roundGauge"), IsEmpty());
    EXPECT_THAT(frames(onlyAir, "box"), ElementsAre(Rect{20, 76, 1100, 116}));
    EXPECT_THAT(frames(onlyAir, "plotView"), ElementsAre(Rect{20, 212, 1100, 220}));
    EXPECT_THAT(properties(onlyAir, "plotView"), ElementsAre("carbonDioxide"));
}

TEST_F(StandardWidgets, PreferOutdoorPropertiesAndTakeWhatThereIs) {
    EXPECT_THAT(properties(station({kIndoorTemperature, "temperature1"}), "roundGauge"), ElementsAre("temperature1"));
    EXPECT_THAT(properties(station({kIndoorTemperature, kTemperature, kOutdoorTemperature}), "roundGauge"),
                ElementsAre("outdoorTemperature"));
    EXPECT_THAT(properties(station({kBarometricPressureAbsolute}), "roundGauge"),
                ElementsAre("barometricPressureAbsolute"));
}

TEST_F(StandardWidgets, AreTidyWhateverIsThere) {
    for (const auto& keys : std::vector<std::vector<std::string_view>>{{kWindSpeed},
                                                                       {kHumidity},
                                                                       {kTemperature, kWindSpeed, kWindDirection},
                                                                       {"fooBar"},
                                                                       {"a", "b", "c", "d", "e", "f"},
                                                                       {kTemperature, kDewPoint, "a", "b"}}) {
        expectTidy(station(keys));
    }
}

TEST_F(StandardWidgets, AreNoneForAStationWithoutProperties) {
    EXPECT_THAT(widgets(station({})), IsEmpty());
}

}  // namespace
}  // namespace zor
