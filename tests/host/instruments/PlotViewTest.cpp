#include "host/instruments/ZORPlotView.h"

#include <gmock/gmock.h>

#include "host/foundation/NotificationCenter.h"
#include "host/station/PropertyKeys.h"
#include "tests/host/instruments/InstrumentSupport.h"
#include "tests/host/instruments/LocalTime.h"

namespace zor {
namespace {

using test::drawn;
using testing::Contains;
using testing::ElementsAre;
using testing::Not;

constexpr Seconds hour = 3600;
/// 2026-07-06 00:00 UTC.
constexpr Seconds midnight = 1783296000;

class PlotView : public ::testing::Test {
protected:
    void SetUp() override {
        FakeToolkit::install();
        setClock([]() -> Seconds { return midnight + 12 * hour; });
        plot->setFrame({0, 0, 480, 360});
    }
    void TearDown() override { setClock(nullptr); }

    std::shared_ptr<Property> add(std::string_view key, double value, std::vector<Sample> past) {
        const auto naming = namingOfProperty(key);
        auto property = agent->addProperty(key, naming.displayName, naming.quantity);
        property->setValue(value, now());
        for (const auto& sample : past) {
            agent->history()->append({sample.time, {{std::string(key), sample.value}}});
        }
        plot->setAgent(agent);
        plot->setProperty(property);
        return property;
    }
    std::vector<std::string> texts() const {
        std::vector<std::string> result;
        for (const auto& operation : drawn(*plot).operationsNamed("drawText")) result.push_back(operation.text);
        return result;
    }
    /// The curve's points, run by run.
    std::vector<std::vector<Point>> lines() const {
        std::vector<std::vector<Point>> result;
        for (const auto& operation : drawn(*plot).operationsNamed("strokePolyline")) {
            auto& points = result.emplace_back();
            for (const auto& element : operation.path.elements()) points.push_back(element.points[0]);
        }
        return result;
    }

    test::LocalTime local{"UTC0"};
    std::shared_ptr<Agent> agent = Agent::withName("Garden");
    std::shared_ptr<ZORPlotView> plot = std::make_shared<ZORPlotView>();
};

std::vector<Sample> every(Seconds step, int count, Seconds from = midnight) {
    std::vector<Sample> samples;
    for (int index = 0; index < count; ++index) samples.push_back({from + index * step, 20.0 + index % 7});
    return samples;
}

TEST_F(PlotView, ShowsTitleUnitValueAndAxes) {
    add(kOutdoorTemperature, 21.5, every(600, 60));
    EXPECT_THAT(texts(), testing::IsSupersetOf({"Outdoor Temperature", "°C", "21.5 °C", "00:00", "12:00", "20", "26"}));
}

TEST_F(PlotView, ShowsThePropertysUnit) {
    add(kOutdoorTemperature, 20, {{midnight, 0}, {midnight + 600, 10}})->setUnit(*unitWithShortName("°F"));
    EXPECT_THAT(texts(), testing::IsSupersetOf({"°F", "68.0 °F", "30", "50"}));
}

TEST_F(PlotView, TodayIsTheStationsDay) {
    add(kOutdoorTemperature, 21.5, every(600, 60, midnight - 100 * 24 * hour));
    EXPECT_TRUE(lines().empty());
    agent->setClock([] { return midnight - 100 * 24 * hour + 12 * hour; });
    ASSERT_EQ(lines().size(), 1u);
    EXPECT_EQ(lines()[0].size(), 60u);
    // A copy, as pictures and prints are made from, has the same day.
    const auto copy = std::dynamic_pointer_cast<ZORPlotView>(plot->copy());
    EXPECT_EQ(drawn(*copy).operationsNamed("strokePolyline").size(), 1u);
}

TEST_F(PlotView, LinksToTheStationAboveItAlsoWithOneOfItsOwn) {
    const auto above = Agent::withName("Roof");
    const auto property = above->addProperty(kOutdoorTemperature, "Roof", Quantity::temperature);
    agent->addProperty(kOutdoorTemperature, "Garden", Quantity::temperature);
    plot->setAgent(agent);
    const auto plugIn = test::TestPlugIn::withAgent(above);
    plugIn->view()->addSubview(plot);
    plot->setPropertyName(std::string(kOutdoorTemperature));
    EXPECT_EQ(plot->property(), property);
}

TEST_F(PlotView, PlacesSamplesByTimeAndValue) {
    add(kOutdoorTemperature, 20, {{midnight + 6 * hour, 20}, {midnight + 6 * hour + 600, 30}});
    const auto curve = lines();
    ASSERT_EQ(curve.size(), 1u);
    ASSERT_EQ(curve[0].size(), 2u);
    // The vertical grid lines at 00:00 and 24:00 are the ends of the time axis, to half a point.
    double left = 480;
    double right = 0;
    for (const auto& operation : drawn(*plot).operationsNamed("strokePath")) {
        for (const auto& [x1, y1, x2, y2] : operation.segments()) {
            const bool isCardsBorder = x1 < 1 || x1 > 479;
            if (x1 != x2 || y2 - y1 < 100 || isCardsBorder) continue;
            left = std::min(left, x1);
            right = std::max(right, x1);
        }
    }
    EXPECT_NEAR((curve[0][0].x - left) / (right - left), 0.25, 0.003);
    EXPECT_NEAR((curve[0][1].x - curve[0][0].x) / (right - left), 600.0 / 86400, 0.003);
    EXPECT_LT(curve[0][1].y, curve[0][0].y);
}

TEST_F(PlotView, BreaksTheLineWhereDataIsMissing) {
    auto samples = every(300, 10);
    for (const auto& sample : every(300, 10, midnight + 3 * hour)) samples.push_back(sample);
    add(kOutdoorTemperature, 20, samples);
    const auto curve = lines();
    ASSERT_EQ(curve.size(), 2u);
    EXPECT_EQ(curve[0].size(), 10u);
    EXPECT_EQ(curve[1].size(), 10u);
}

TEST_F(PlotView, DrawsNoMorePointsThanItHasPixels) {
    add(kOutdoorTemperature, 20, every(10, 4320));
    const auto curve = lines();
    ASSERT_EQ(curve.size(), 1u);
    EXPECT_LE(curve[0].size(), 4u * 480);
    EXPECT_GE(curve[0].size(), 480u / 2);
}

TEST_F(PlotView, ShowsOnlyItsPeriod) {
    add(kOutdoorTemperature, 20, {{midnight - 2 * hour, 3}, {midnight + hour, 20}, {midnight + hour + 60, 21}});
    ASSERT_EQ(lines().size(), 1u);
    EXPECT_EQ(lines()[0].size(), 2u);
    EXPECT_THAT(texts(), Not(Contains("0")));
    plot->setPeriod(static_cast<std::uint32_t>(PlotPeriod::twoDays));
    EXPECT_THAT(texts(), Contains("Sun 5"));
    EXPECT_THAT(texts(), Contains("0"));
}

TEST_F(PlotView, DrawsDirectionsAsDots) {
    add(kWindDirection, 350, {{midnight, 350}, {midnight + 300, 10}, {midnight + 600, 355}});
    EXPECT_TRUE(lines().empty());
    EXPECT_THAT(texts(), testing::IsSupersetOf({"N", "E", "S", "W", "350°"}));
    const auto fills = drawn(*plot).operationsNamed("fillPath");
    ASSERT_FALSE(fills.empty());
    // An oval is a move, four curves and a close.
    EXPECT_EQ(fills.back().path.elements().size(), 3u * 6);
}

TEST_F(PlotView, WithoutDataKeepsItsFrameAndSaysSo) {
    add(kOutdoorTemperature, 20, {});
    EXPECT_THAT(texts(), testing::IsSupersetOf({"Outdoor Temperature", "20.0 °C", "--", "12:00"}));
    EXPECT_TRUE(lines().empty());
}

TEST_F(PlotView, WithoutThePropertyShowsItsNameAndNoValue) {
    plot->linkProperty("soilMoisture1", {});
    const auto shown = texts();
    EXPECT_THAT(shown, Contains("soilMoisture1"));
    EXPECT_EQ(std::ranges::count(shown, "--"), 2);
    plot->setPropertyName({});
    EXPECT_THAT(texts(), Not(Contains("soilMoisture1")));
    EXPECT_THAT(texts(), Contains("--"));
}

TEST_F(PlotView, WithoutAValueStillShowsTheDay) {
    const auto property = add(kOutdoorTemperature, 20, every(300, 20));
    property->setValue({}, now());
    EXPECT_THAT(texts(), Contains("--"));
    EXPECT_EQ(lines().size(), 1u);
}

TEST_F(PlotView, TakesHistoryFromThePlugInAboveIt) {
    add(kOutdoorTemperature, 20, every(300, 20));
    plot->setAgent({});
    EXPECT_TRUE(lines().empty());
    const auto plugIn = test::TestPlugIn::withAgent(agent);
    plugIn->view()->addSubview(plot);
    EXPECT_EQ(lines().size(), 1u);
}

TEST_F(PlotView, HoldsItsAgentWeakly) {
    plot->setAgent(agent);
    EXPECT_EQ(plot->valueForKey("agent").asObject(), agent);
    EXPECT_EQ(std::dynamic_pointer_cast<ZORPlotView>(plot->copy())->agent(), agent);
    agent.reset();
    EXPECT_FALSE(plot->agent());
    EXPECT_TRUE(plot->valueForKey("agent").isAbsent());
}

TEST_F(PlotView, KeepsAnyPeriodsCode) {
    EXPECT_EQ(plot->valueForKey("period"), Value(std::int64_t{0x70647464}));
    EXPECT_TRUE(plot->setValueForKey("period", std::int64_t{12345}));
    EXPECT_EQ(plot->period(), 12345u);
    EXPECT_EQ(std::dynamic_pointer_cast<ZORPlotView>(plot->copy())->period(), 12345u);
    const auto restored = test::roundTrip(plot);
    ASSERT_TRUE(restored);
    EXPECT_EQ(restored->period(), 12345u);
    EXPECT_FALSE(plot->setValueForKey("period", "today"));
    EXPECT_FALSE(plot->setValueForKey("period", std::int64_t{-1}));
    EXPECT_EQ(plot->period(), 12345u);
}

TEST_F(PlotView, ArchivesItsLook) {
    plot->setLineColor(Color::rgb(0x112233));
    plot->setLineWidth(3.5);
    plot->setDrawsGrid(false);
    plot->setFillsArea(false);
    plot->setBackgroundColor(Color::black());
    const auto restored = test::roundTrip(plot);
    ASSERT_TRUE(restored);
    EXPECT_EQ(restored->lineColor(), Color::rgb(0x112233));
    EXPECT_EQ(restored->lineWidth(), 3.5);
    EXPECT_FALSE(restored->drawsGrid());
    EXPECT_FALSE(restored->fillsArea());
    EXPECT_EQ(restored->backgroundColor(), Color::black());
}

TEST_F(PlotView, FillsTheAreaOnlyWhereWanted) {
    add(kOutdoorTemperature, 20, every(300, 20));
    EXPECT_EQ(drawn(*plot).operationsNamed("fillPathWithGradient").size(), 1u);
    plot->setFillsArea(false);
    EXPECT_EQ(drawn(*plot).operationsNamed("fillPathWithGradient").size(), 0u);
}

TEST_F(PlotView, ASmallOneKeepsItsCurve) {
    add(kOutdoorTemperature, 20, every(300, 20));
    plot->setFrame({0, 0, 60, 40});
    EXPECT_TRUE(texts().empty());
    EXPECT_EQ(lines().size(), 1u);
    plot->setFrame({0, 0, 140, 80});
    EXPECT_THAT(texts(), ElementsAre("20.0 °C", "Outdoor Temperature"));
}

TEST_F(PlotView, RedrawsInAWindowWhenHistoryComesOrTimePasses) {
    plot->setAgent(agent);
    auto& center = NotificationCenter::defaultCenter();
    const auto before = center.observerCount(kHistoryDidFetchNotification);
    const auto window = std::make_shared<Window>();
    const auto peer = std::make_shared<FakeWindowPeer>();
    window->setPeer(peer);
    window->setContentView(plot);
    ASSERT_EQ(center.observerCount(kHistoryDidFetchNotification), before + 1);
    auto& damage = peer->damage;
    damage.clear();
    center.post(kHistoryDidFetchNotification, agent->history().get());
    EXPECT_EQ(damage.size(), 1u);
    center.post(kHistoryDidFetchNotification, Agent::withName("Other")->history().get());
    EXPECT_EQ(damage.size(), 1u);
    center.post(kAppTimerOneMinuteNotification);
    EXPECT_EQ(damage.size(), 2u);
    window->setContentView({});
    EXPECT_EQ(center.observerCount(kHistoryDidFetchNotification), before);
}

}  // namespace
}  // namespace zor
