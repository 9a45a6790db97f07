#include "host/station/DerivedValues.h"

#include <gmock/gmock.h>
#include <stdlib.h>
#include <time.h>

#include <cmath>

#include "host/station/PropertyKeys.h"

namespace zor {
namespace {

double celsius(double fahrenheit) {
    return (fahrenheit - 32) / 1.8;
}
double fahrenheit(double degrees) {
    return degrees * 1.8 + 32;
}
double mph(double speed) {
    return speed * 0.44704;
}

TEST(Formulae, DewPoint) {
    EXPECT_NEAR(*dewPoint(25, 60), 16.7, 0.05);
    EXPECT_NEAR(*dewPoint(20, 50), 9.3, 0.05);
    EXPECT_NEAR(*dewPoint(-5, 80), -7.9, 0.1);
    EXPECT_NEAR(*dewPoint(12.5, 100), 12.5, 1e-9);
    EXPECT_EQ(dewPoint(20, 0), std::nullopt);
    EXPECT_EQ(dewPoint(20, -5), std::nullopt);
    EXPECT_EQ(dewPoint(20, std::nan("")), std::nullopt);
}

/// Entries of the heat index table of the US National Weather Service, in °F, %, °F, where no adjustment applies.
TEST(Formulae, HeatIndexTable) {
    const double table[][3] = {{80, 40, 80},   {84, 85, 96},   {86, 50, 88},  {90, 70, 106},
                               {90, 95, 127},  {94, 55, 106},  {96, 50, 108}, {100, 40, 109},
                               {100, 65, 136}, {104, 50, 131}, {110, 40, 136}};
    for (const auto& [temperature, humidity, index] : table) {
        EXPECT_NEAR(fahrenheit(heatIndex(celsius(temperature), humidity)), index, 0.9)
            << temperature << " " << humidity;
    }
}

TEST(Formulae, HeatIndexOfVeryDryAndVeryDampAirIsAdjusted) {
    // The regression gives 94.184 °F; (13 - 5) / 4 × √((17 - |100 - 95|) / 17) = 1.680 is taken off.
    EXPECT_NEAR(fahrenheit(heatIndex(celsius(100), 5)), 92.504, 0.001);
    // The regression gives 91.492 °F; (90 - 85) / 10 × (87 - 82) / 5 = 0.5 is put on.
    EXPECT_NEAR(fahrenheit(heatIndex(celsius(82), 90)), 91.992, 0.001);
}

TEST(Formulae, HeatIndexBelowEightyDegreesIsSteadmans) {
    // 0.5 × (70 + 61 + 2 × 1.2 + 50 × 0.094) = 69.05, averaged with 70.
    EXPECT_NEAR(fahrenheit(heatIndex(celsius(70), 50)), 69.525, 1e-9);
}

/// Entries of the wind chill chart of the US National Weather Service, in °F, mph, °F.
TEST(Formulae, WindChillChart) {
    const double chart[][3] = {{0, 15, -19}, {40, 5, 36}, {30, 10, 21}, {20, 30, 1}, {-20, 40, -57}, {-45, 60, -98}};
    for (const auto& [temperature, wind, chill] : chart) {
        EXPECT_NEAR(fahrenheit(windChill(celsius(temperature), mph(wind))), chill, 0.6) << temperature << " " << wind;
    }
}

TEST(Formulae, WindChillHasLimits) {
    EXPECT_EQ(windChill(10.1, 20), 10.1);
    EXPECT_EQ(windChill(-10, 4.7 / 3.6), -10);
    EXPECT_LT(windChill(10, 10), 10);
    EXPECT_LT(windChill(-10, 4.9 / 3.6), -10);
}

TEST(Formulae, FeelsLike) {
    EXPECT_EQ(feelsLike(5, 80, 8), windChill(5, 8));
    EXPECT_EQ(feelsLike(32, 70, 8), heatIndex(32, 70));
    EXPECT_EQ(feelsLike(18, 70, 8), 18);
    EXPECT_EQ(feelsLike(26.6, 70, 8), 26.6);
}

TEST(Formulae, PressureTrend) {
    const std::vector<Sample> steady = {{0, 1000}, {10800, 1003.5}};
    EXPECT_EQ(pressureTrend(steady), 3.5);
    const std::vector<Sample> nearest = {{0, 990}, {1000, 1000}, {2300, 1001}, {12000, 998}};
    EXPECT_EQ(pressureTrend(nearest), -2.0);
    const std::vector<Sample> justNear = {{0, 1000}, {9600, 1001}};
    EXPECT_EQ(pressureTrend(justNear), 1.0);
    const std::vector<Sample> tooFar = {{0, 1000}, {9599, 1001}};
    EXPECT_EQ(pressureTrend(tooFar), std::nullopt);
    EXPECT_EQ(pressureTrend({}), std::nullopt);
    const std::vector<Sample> alone = {{0, 1000}};
    EXPECT_EQ(pressureTrend(alone), std::nullopt);
}

TEST(Formulae, RainRate) {
    const std::vector<Sample> increments = {{100, 5}, {1000, 1}, {1500, 0.5}, {1900, 0.25}, {2000, 4}};
    EXPECT_EQ(rainRate(increments, 1900), 3.0);
    EXPECT_EQ(rainRate(increments, 1899), 6.0);
    EXPECT_EQ(rainRate(increments, 50), 0);
    EXPECT_EQ(rainRate({}, 1000), 0);
}

TEST(Formulae, LocalMidnight) {
    const std::string before = getenv("TZ") ? getenv("TZ") : "";
    setenv("TZ", "CET-1CEST,M3.5.0,M10.5.0/3", 1);
    tzset();
    // 2024-03-31 12:00 CEST, a day of 23 hours, whose midnight was still CET.
    EXPECT_EQ(localMidnight(1711879200), 1711839600);
    // 2024-01-15 00:00 CET is its own midnight, the second before it lies in the day before.
    EXPECT_EQ(localMidnight(1705273200), 1705273200);
    EXPECT_EQ(localMidnight(1705273199.5), 1705186800);
    before.empty() ? unsetenv("TZ") : setenv("TZ", before.c_str(), 1);
    tzset();
}

/// Days begin at whole multiples of 100,000 seconds.
Seconds roundMidnight(Seconds time) {
    return std::floor(time / 100'000) * 100'000;
}

class DerivedValuesTest : public testing::Test {
protected:
    /// The reading completed; it then belongs to the past.
    Reading take(Seconds time, std::vector<Measurement> measurements) {
        Reading reading{time, std::move(measurements)};
        derived.complete(reading);
        past->append(reading);
        return reading;
    }
    static std::optional<double> valueOf(const Reading& reading, std::string_view key) {
        for (const auto& measurement : reading.measurements) {
            if (measurement.key == key) return measurement.value;
        }
        return {};
    }
    static std::vector<std::string> keysOf(const Reading& reading) {
        std::vector<std::string> keys;
        for (const auto& measurement : reading.measurements) keys.push_back(measurement.key);
        return keys;
    }

    std::shared_ptr<History> past = std::make_shared<History>();
    DerivedValues derived{past, roundMidnight};
};

TEST_F(DerivedValuesTest, OutdoorAndIndoorTemperatures) {
    const auto reading = take(50'000, {{"outdoorTemperature", 25},
                                       {"outdoorHumidity", 60},
                                       {"windSpeed", 3},
                                       {"indoorTemperature", 20},
                                       {"indoorHumidity", 50}});
    EXPECT_EQ(valueOf(reading, "outdoorDewPoint"), dewPoint(25, 60));
    EXPECT_EQ(valueOf(reading, "outdoorHeatIndex"), heatIndex(25, 60));
    EXPECT_EQ(valueOf(reading, "windChill"), 25);
    EXPECT_EQ(valueOf(reading, "feelsLike"), 25);
    EXPECT_EQ(valueOf(reading, "indoorDewPoint"), dewPoint(20, 50));
    EXPECT_EQ(reading.measurements.size(), 10u);
}

TEST_F(DerivedValuesTest, PlainTemperatureWhereThereIsNoOutdoorOne) {
    const auto reading = take(50'000, {{"temperature", 31}, {"humidity", 70}});
    EXPECT_EQ(valueOf(reading, "dewPoint"), dewPoint(31, 70));
    EXPECT_EQ(valueOf(reading, "heatIndex"), heatIndex(31, 70));
    EXPECT_EQ(reading.measurements.size(), 4u);
}

TEST_F(DerivedValuesTest, WhatIsMeasuredStays) {
    const auto reading =
        take(50'000,
             {{"outdoorTemperature", 25}, {"outdoorHumidity", 60}, {"outdoorDewPoint", 17}, {"outdoorHeatIndex", {}}});
    EXPECT_EQ(valueOf(reading, "outdoorDewPoint"), 17);
    EXPECT_EQ(valueOf(reading, "outdoorHeatIndex"), heatIndex(25, 60));
    EXPECT_EQ(reading.measurements.size(), 4u);
}

TEST_F(DerivedValuesTest, NothingIsDerivedFromWhatIsMissing) {
    EXPECT_THAT(keysOf(take(50'000, {{"outdoorTemperature", 25}, {"outdoorHumidity", {}}})),
                testing::ElementsAre("outdoorTemperature", "outdoorHumidity"));
    EXPECT_THAT(keysOf(take(50'001, {{"outdoorTemperature", 25}, {"humidity", 50}})),
                testing::ElementsAre("outdoorTemperature", "humidity"));
    EXPECT_THAT(keysOf(take(50'002, {{"barometricPressureRelative", 1013}})),
                testing::ElementsAre("barometricPressureRelative"));
}

TEST_F(DerivedValuesTest, RainFromItsIncrements) {
    take(199'900, {{"rainIncrement", 7}});
    take(200'100, {{"rainIncrement", 1}});
    take(202'000, {{"rainIncrement", 2}});
    const auto reading = take(202'500, {{"rainIncrement", 0.5}});
    EXPECT_EQ(valueOf(reading, "rainRate"), 10);
    EXPECT_EQ(valueOf(reading, "rainToday"), 3.5);
    EXPECT_EQ(valueOf(reading, "rainLastHour"), 10.5);
    const auto later = take(203'550, {{"outdoorTemperature", 10}});
    EXPECT_EQ(valueOf(later, "rainRate"), 0);
    EXPECT_EQ(valueOf(later, "rainToday"), 3.5);
    EXPECT_EQ(valueOf(later, "rainLastHour"), 3.5);
    EXPECT_EQ(valueOf(take(300'100, {{"rainIncrement", 0}}), "rainToday"), 0);
}

TEST_F(DerivedValuesTest, AReadingTakenTwiceCountsOnce) {
    take(50'000, {{"rainIncrement", 1}});
    EXPECT_EQ(valueOf(take(50'000, {{"rainIncrement", 1}}), "rainToday"), 1);
}

TEST_F(DerivedValuesTest, RainThatTheStationCountsStays) {
    take(50'000, {{"rainIncrement", 1}});
    const auto reading = take(50'060, {{"rainIncrement", 1}, {"rainToday", 30}, {"rainRate", 8}});
    EXPECT_EQ(valueOf(reading, "rainToday"), 30);
    EXPECT_EQ(valueOf(reading, "rainRate"), 8);
    EXPECT_EQ(valueOf(reading, "rainLastHour"), 2);
}

TEST_F(DerivedValuesTest, PressureTrendOfTheRelativeBeforeTheAbsolutePressure) {
    take(40'000, {{"barometricPressureRelative", 1010}, {"barometricPressureAbsolute", 980}});
    EXPECT_EQ(valueOf(take(50'800, {{"barometricPressureRelative", 1012}, {"barometricPressureAbsolute", 985}}),
                      "barometricPressureTrend"),
              2);
    EXPECT_EQ(valueOf(take(50'900, {{"barometricPressureAbsolute", 981}}), "barometricPressureTrend"), 1);
}

TEST_F(DerivedValuesTest, ThePastMayComeFromAnArchive) {
    struct Loader : HistoryLoader {
        std::vector<Sample> load(std::string_view key, Seconds, Seconds) override {
            if (key == kBarometricPressureRelative) return {{39'000, 1020}, {40'000, 1010}};
            if (key == kRainIncrement) return {{10'000, 4}};
            return {};
        }
    };
    past->setSynchronous(true);
    past->setLoader(std::make_shared<Loader>());
    const auto reading = take(50'800, {{"barometricPressureRelative", 1012}, {"rainIncrement", 0.5}});
    EXPECT_EQ(valueOf(reading, "barometricPressureTrend"), 2);
    EXPECT_EQ(valueOf(reading, "rainToday"), 4.5);
}

}  // namespace
}  // namespace zor
