#include "stations/simulator/SimulatedStation.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>

#include "host/station/DerivedValues.h"
#include "host/station/PropertyKeys.h"
#include "tests/stations/MainLoop.h"
#include "tests/stations/TimeZone.h"

namespace zor {
namespace {

const test::CentralEurope zone;

constexpr std::int64_t kStart = 1751371200;  // 2025-07-01 12:00 UTC

std::shared_ptr<StationDriver> made(const Value::Dictionary& settings) {
    auto station = SimulatedStation::create(settings);
    EXPECT_TRUE(station) << station.error().message;
    return *station;
}

double valueOf(const Reading& reading, std::string_view key) {
    const auto found = std::ranges::find(reading.measurements, key, &Measurement::key);
    return found == reading.measurements.end() ? NAN : found->value.value_or(NAN);
}

TEST(SimulatedStation, ItsTimeRunsAtItsOwnSpeed) {
    const auto station = made({{"start", kStart}, {"speed", 1e6}});
    const Seconds before = station->now();
    EXPECT_GE(before, kStart);
    Seconds after = before;
    while (after < before + 1000) after = station->now();
    EXPECT_GE(station->currentReading().time, after);
}

TEST(SimulatedStation, NeedsNoSettings) {
    const auto station = made({});
    EXPECT_EQ(station->stationName(), "Demo Station");
    EXPECT_FALSE(station->isLive());
    EXPECT_NEAR(station->currentReading().time, now(), 5);
    EXPECT_EQ(station->currentReading().measurements.size(), 14);
    EXPECT_EQ(made({{"name", "Garden"}})->stationName(), "Garden");
}

TEST(SimulatedStation, RefusesSettingsThatCannotBe) {
    const std::pair<const char*, Value> wrong[] = {
        {"speed", 0},       {"speed", -1},         {"speed", NAN},    {"speed", "fast"}, {"interval", 0},
        {"latitude", 90.1}, {"longitude", -180.5}, {"seed", "seven"}, {"seed", 1.5},     {"start", "yesterday"},
    };
    for (const auto& [name, value] : wrong) {
        const auto station = SimulatedStation::create({{name, value}});
        ASSERT_FALSE(station) << name;
        EXPECT_THAT(station.error().message, testing::HasSubstr("“" + std::string(name) + "”"));
    }
}

TEST(SimulatedStation, TheSameSeedAndMomentGiveTheSameWeather) {
    const auto history = [](int seed) {
        return made({{"seed", seed}, {"start", kStart}})->historyLoader()->load("windSpeed", kStart - 86400, kStart);
    };
    EXPECT_EQ(history(4), history(4));
    EXPECT_NE(history(4), history(5));
}

TEST(SimulatedStation, SendsReadingsOfItsOwnTime) {
    test::MainLoop loop;
    const auto station = made({{"start", kStart}, {"speed", 3000}, {"interval", 60}});
    std::vector<Reading> readings;
    station->start({[&](Reading reading) { readings.push_back(std::move(reading)); },
                    [](const std::string& trouble) { ADD_FAILURE() << trouble; }});
    EXPECT_TRUE(loop.runUntil([&] { return readings.size() >= 4; }));
    station->stop();
    const auto count = readings.size();
    MainQueue::shared().run();
    EXPECT_EQ(readings.size(), count);

    const WeatherModel model(1, {50, 15});
    for (std::size_t index = 0; index < count; ++index) {
        const auto& reading = readings[index];
        EXPECT_GE(reading.time, kStart);
        EXPECT_EQ(std::fmod(reading.time, 60), 0);
        // The zone's winter time is that of 15° east.
        EXPECT_EQ(valueOf(reading, kOutdoorTemperature), model.at(reading.time).outdoorTemperature);
        if (index == 0) continue;
        EXPECT_GT(reading.time, readings[index - 1].time);
        EXPECT_EQ(valueOf(reading, kRainIncrement), model.rain(readings[index - 1].time, reading.time));
    }
}

TEST(SimulatedStation, StopsAndStartsAgain) {
    test::MainLoop loop;
    const auto station = made({{"speed", 1000}, {"interval", 10}});
    for (int round = 0; round < 3; ++round) {
        int count = 0;
        station->start({[&](const Reading&) { ++count; }, {}});
        EXPECT_TRUE(loop.runUntil([&] { return count >= 2; }));
        station->stop();
        station->stop();
    }
}

TEST(SimulatedStation, EndsWithoutBeingStopped) {
    test::MainLoop loop;
    auto station = made({});
    station->start({[](const Reading&) { ADD_FAILURE() << "its driver is gone"; }, {}});
    station.reset();
    MainQueue::shared().run();
}

TEST(SimulatedHistory, HasASampleEveryFiveMinutesUpToNow) {
    const auto loader = made({{"start", kStart}, {"latitude", 50}, {"longitude", 8}})->historyLoader();
    const WeatherModel model(1, {50, 8});
    const auto samples = loader->load("outdoorTemperature", kStart - 86400, kStart);
    ASSERT_EQ(samples.size(), 289);
    EXPECT_EQ(samples.front().time, kStart - 86400);
    EXPECT_EQ(samples.back().time, kStart);
    for (const auto& sample : samples) EXPECT_EQ(sample.value, model.at(sample.time).outdoorTemperature);

    // Nothing of the future.
    EXPECT_EQ(loader->load("outdoorTemperature", kStart - 1000, kStart + 864000).back().time, kStart);
    EXPECT_TRUE(loader->load("outdoorTemperature", kStart + 3600, kStart + 864000).empty());
    EXPECT_EQ(loader->load("outdoorTemperature", kStart - 400, kStart - 1).size(), 1);
    EXPECT_TRUE(loader->load("noSuchThing", kStart - 86400, kStart).empty());
    // Ten years, whatever is asked for.
    EXPECT_EQ(loader->load("windDirection", -1e300, kStart).size(), 1051921);
}

TEST(SimulatedHistory, KnowsWhatDerivesFromTheWeather) {
    const auto loader = made({{"start", kStart}, {"longitude", 8}})->historyLoader();
    const WeatherModel model(1, {50, 8});
    const Seconds time = kStart - 3600;
    const Weather w = model.at(time);
    const auto at = [&](std::string_view key) {
        const auto samples = loader->load(key, time, time);
        EXPECT_EQ(samples.size(), 1) << key;
        return samples.empty() ? NAN : samples.front().value;
    };
    EXPECT_EQ(at("outdoorDewPoint"), dewPoint(w.outdoorTemperature, w.outdoorHumidity));
    EXPECT_EQ(at("outdoorHeatIndex"), heatIndex(w.outdoorTemperature, w.outdoorHumidity));
    EXPECT_EQ(at("windChill"), windChill(w.outdoorTemperature, w.windSpeed));
    EXPECT_EQ(at("feelsLike"), feelsLike(w.outdoorTemperature, w.outdoorHumidity, w.windSpeed));
    EXPECT_EQ(at("barometricPressureTrend"), w.pressureRelative - model.at(time - 10800).pressureRelative);
    EXPECT_EQ(at("rainLastHour"), model.rain(time - 3600, time));
    EXPECT_EQ(at("rainIncrement"), model.rain(time - 300, time));
    EXPECT_NEAR(at("rainToday"), model.rainToday(time), 1e-9);
}

TEST(SimulatedHistory, RainOfTheDayAddsUpTheIncrements) {
    const auto loader = made({{"start", kStart}})->historyLoader();
    const Seconds from = kStart - 20 * 86400;
    const auto increments = loader->load("rainIncrement", from, kStart);
    const auto totals = loader->load("rainToday", from, kStart);
    ASSERT_EQ(increments.size(), totals.size());
    double rained = 0;
    for (std::size_t index = 1; index < totals.size(); ++index) {
        const bool isMidnight = localMidnight(totals[index].time) == totals[index].time;
        const double expected = isMidnight ? 0 : totals[index - 1].value + increments[index].value;
        ASSERT_NEAR(totals[index].value, expected, 1e-9) << totals[index].time;
        rained += increments[index].value;
    }
    EXPECT_GT(rained, 0.5);
}

}  // namespace
}  // namespace zor
