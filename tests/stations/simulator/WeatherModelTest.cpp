#include "stations/simulator/WeatherModel.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "host/station/DerivedValues.h"
#include "host/station/PropertyKeys.h"
#include "host/station/Units.h"
#include "tests/stations/TimeZone.h"

namespace zor {
namespace {

const test::CentralEurope zone;

constexpr Seconds kHour = 3600;
constexpr Seconds kDay = 24 * kHour;
constexpr Seconds kYear2025 = 1735689600;
constexpr Seconds kJuly2025 = 1751328000;
constexpr Place kMainz = {50, 8};

const WeatherModel& model() {
    static const WeatherModel made(1, kMainz);
    return made;
}

double meanOf(const WeatherModel& weather, double Weather::*field, Seconds from, Seconds to, Seconds step) {
    double sum = 0;
    int count = 0;
    for (Seconds time = from; time < to; time += step, ++count) sum += weather.at(time).*field;
    return sum / count;
}

TEST(WeatherModel, StaysWithinWhatNatureAllowsForAYear) {
    for (const Place& place : {kMainz, Place{0, 0}, Place{-35, 150}, Place{78, 15}}) {
        const WeatherModel weather(7, place);
        for (Seconds time = kYear2025; time < kYear2025 + 365 * kDay; time += 1000) {
            const Weather w = weather.at(time);
            ASSERT_GE(w.pressureRelative, 960) << time;
            ASSERT_LE(w.pressureRelative, 1050) << time;
            ASSERT_GE(w.pressureAbsolute, 940) << time;
            ASSERT_LT(w.pressureAbsolute, w.pressureRelative) << time;
            ASSERT_GE(w.outdoorHumidity, 15) << time;
            ASSERT_LE(w.outdoorHumidity, 100) << time;
            ASSERT_LE(*dewPoint(w.outdoorTemperature, w.outdoorHumidity), w.outdoorTemperature + 1e-9) << time;
            ASSERT_GE(w.windSpeed, 0) << time;
            ASSERT_GE(w.windGust, w.windSpeed) << time;
            ASSERT_LE(w.windGust, 45) << time;
            ASSERT_GE(w.windDirection, 0) << time;
            ASSERT_LT(w.windDirection, 360) << time;
            ASSERT_GE(w.rainRate, 0) << time;
            ASSERT_LE(w.rainRate, 40) << time;
            ASSERT_GE(w.solarRadiation, 0) << time;
            ASSERT_LE(w.solarRadiation, 1100) << time;
            ASSERT_GE(w.uvIndex, 0) << time;
            ASSERT_LE(w.uvIndex, 13) << time;
            ASSERT_GE(w.outdoorTemperature, -45) << time;
            ASSERT_LE(w.outdoorTemperature, 45) << time;
            ASSERT_GE(w.indoorTemperature, 17) << time;
            ASSERT_LE(w.indoorTemperature, 27) << time;
            ASSERT_GE(w.indoorHumidity, 25) << time;
            ASSERT_LE(w.indoorHumidity, 70) << time;
            if (sunHeight(time, place) <= 0) {
                ASSERT_EQ(w.solarRadiation, 0) << time;
                ASSERT_EQ(w.uvIndex, 0) << time;
            }
        }
    }
}

TEST(WeatherModel, JulyIsWarmerThanJanuaryNorthAndColderSouth) {
    const auto months = [](const Place& place) {
        const WeatherModel weather(3, place);
        return std::pair(meanOf(weather, &Weather::outdoorTemperature, kYear2025, kYear2025 + 31 * kDay, kHour),
                         meanOf(weather, &Weather::outdoorTemperature, kJuly2025, kJuly2025 + 31 * kDay, kHour));
    };
    const auto [january, july] = months({50, 8});
    EXPECT_GT(july, january + 14);
    EXPECT_GT(july, 14);
    EXPECT_LT(july, 25);
    EXPECT_GT(january, -8);
    EXPECT_LT(january, 6);
    const auto [southJanuary, southJuly] = months({-50, 8});
    EXPECT_LT(southJuly, southJanuary - 14);
    const auto [equatorJanuary, equatorJuly] = months({0, 8});
    EXPECT_NEAR(equatorJuly, equatorJanuary, 3);
}

TEST(WeatherModel, AfternoonsAreWarmerAndDrierThanNights) {
    std::map<int, double> temperature;
    std::map<int, double> humidity;
    for (int day = 0; day < 31; ++day) {
        for (const int hour : {3, 15}) {
            // Eight degrees east the sun is half an hour ahead.
            const Weather w = model().at(kJuly2025 + day * kDay + (hour - 8.0 / 15) * kHour);
            temperature[hour] += w.outdoorTemperature / 31;
            humidity[hour] += w.outdoorHumidity / 31;
        }
    }
    EXPECT_GT(temperature[15], temperature[3] + 5);
    EXPECT_LT(humidity[15], humidity[3] - 10);
}

TEST(WeatherModel, TheSunShinesStrongerInSummer) {
    const auto noon = 12 * kHour - 8 * 240;
    double june = 0;
    double december = 0;
    for (int day = 0; day < 30; ++day) {
        june += model().at(kYear2025 + (151 + day) * kDay + noon).solarRadiation / 30;
        december += model().at(kYear2025 + (334 + day) * kDay + noon).solarRadiation / 30;
    }
    EXPECT_GT(june, 400);
    EXPECT_LT(december, 250);
    EXPECT_GT(december, 50);
}

TEST(WeatherModel, ChangesSmoothly) {
    for (Seconds time = kJuly2025; time < kJuly2025 + 7 * kDay; time += 60) {
        const Weather before = model().at(time);
        const Weather after = model().at(time + 60);
        ASSERT_NEAR(before.outdoorTemperature, after.outdoorTemperature, 0.5) << time;
        ASSERT_NEAR(before.pressureRelative, after.pressureRelative, 0.2) << time;
        ASSERT_NEAR(before.outdoorHumidity, after.outdoorHumidity, 5) << time;
        ASSERT_NEAR(before.indoorTemperature, after.indoorTemperature, 0.05) << time;
    }
}

TEST(WeatherModel, TheSeedDecidesEverything) {
    const WeatherModel same(1, kMainz);
    const WeatherModel other(2, kMainz);
    int different = 0;
    for (Seconds time = kYear2025 + 10 * kDay; time > kYear2025; time -= 7777) {
        const Weather w = model().at(time);
        EXPECT_EQ(w.outdoorTemperature, same.at(time).outdoorTemperature);
        EXPECT_EQ(w.rainRate, same.at(time).rainRate);
        EXPECT_EQ(w.windGust, same.at(time).windGust);
        different += std::abs(w.pressureRelative - other.at(time).pressureRelative) > 0.5 ? 1 : 0;
    }
    EXPECT_GT(different, 90);
}

TEST(WeatherModel, RainAmountsAreTheIntegralOfTheRate) {
    double sum = 0;
    for (Seconds minute = kJuly2025; minute < kJuly2025 + 31 * kDay; minute += 60) {
        sum += model().rainRate(minute + 13) / 60;
    }
    EXPECT_GT(sum, 1);
    EXPECT_NEAR(model().rain(kJuly2025, kJuly2025 + 31 * kDay), sum, 1e-6);
}

TEST(WeatherModel, RainAmountsAddUpWhereverTheyAreCut) {
    const Seconds end = kJuly2025 + 4 * kDay;
    double sum = 0;
    for (Seconds from = kJuly2025; from < end; from += 172.8) sum += model().rain(from, std::min(end, from + 172.8));
    EXPECT_NEAR(model().rain(kJuly2025, end), sum, 1e-6);
    EXPECT_EQ(model().rain(end, end), 0);
    EXPECT_EQ(model().rain(end, kJuly2025), 0);
}

TEST(WeatherModel, RainTodayStartsAtLocalMidnight) {
    // Central European summer time: midnight is 22:00 UTC.
    const Seconds midnight = kJuly2025 - 2 * kHour;
    for (int day = 0; day < 31; ++day) {
        const Seconds start = midnight + day * kDay;
        EXPECT_EQ(model().rainToday(start), 0);
        EXPECT_NEAR(model().rainToday(start + kDay - 1), model().rain(start, start + kDay - 1), 1e-9);
    }
}

TEST(WeatherModel, AYearHasRainAndDryDays) {
    double total = 0;
    int dry = 0;
    for (int day = 0; day < 365; ++day) {
        const double amount = model().rain(kYear2025 + day * kDay, kYear2025 + (day + 1) * kDay);
        total += amount;
        dry += amount == 0 ? 1 : 0;
    }
    EXPECT_GT(total, 350);
    EXPECT_LT(total, 1400);
    EXPECT_GT(dry, 100);
    EXPECT_LT(dry, 300);
}

/// The strongest passage of a front in the year.
Seconds passage() {
    const ValueNoise noise(1);
    Seconds found = 0;
    double deepest = 0;
    for (Seconds time = kYear2025; time < kYear2025 + 365 * kDay; time += 600) {
        const double depth = frontalWeather(noise, time).trough;
        if (depth > deepest) {
            deepest = depth;
            found = time;
        }
    }
    return found;
}

TEST(WeatherModel, AFrontDropsThePressureVeersTheWindAndBringsRain) {
    const Seconds front = passage();
    const ValueNoise noise(1);
    const auto ahead = frontalWeather(noise, front - 6 * kHour);
    const auto behind = frontalWeather(noise, front + 6 * kHour);
    EXPECT_GT(ahead.warmth, 0.5);
    EXPECT_GT(behind.cold, 0.5);
    EXPECT_GT(behind.veer, ahead.veer + 40);
    EXPECT_GT(behind.showers, 0.3);

    EXPECT_LT(model().at(front).pressureRelative, model().at(front - 30 * kHour).pressureRelative - 5);
    EXPECT_LT(model().at(front).pressureRelative, model().at(front + 18 * kHour).pressureRelative - 5);
    EXPECT_GT(model().rain(front - 5 * kHour, front + 2 * kHour), 2);
    EXPECT_GT(meanOf(model(), &Weather::windSpeed, front - kHour, front + kHour, 60), 4);
}

TEST(WeatherModel, AFrontPassesEveryFewDays) {
    const ValueNoise noise(5);
    Seconds last = kYear2025;
    bool wasWarm = false;
    int passages = 0;
    for (Seconds time = kYear2025; time < kYear2025 + 200 * kDay; time += 600) {
        const auto weather = frontalWeather(noise, time);
        const bool isWarm = weather.warmth > weather.cold;
        if (wasWarm && !isWarm) {
            EXPECT_LE(time - last, 7 * kDay);
            last = time;
            ++passages;
        }
        wasWarm = isWarm;
    }
    EXPECT_GT(passages, 40);
    EXPECT_LT(passages, 60);
}

TEST(WeatherModel, AReadingHoldsWhatAStationMeasures) {
    const Seconds time = kJuly2025 + 12 * kHour;
    const Reading reading = model().reading(time, time - 300);
    EXPECT_EQ(reading.time, time);
    std::map<std::string, double> values;
    for (const auto& [key, value] : reading.measurements) {
        ASSERT_TRUE(value) << key;
        EXPECT_NE(knownProperty(key), nullptr) << key;
        EXPECT_TRUE(isPlausible(*value, knownProperty(key)->quantity)) << key;
        values[key] = *value;
    }
    EXPECT_EQ(values.size(), 14);
    EXPECT_EQ(reading.measurements.size(), 14);
    EXPECT_EQ(values.at("outdoorTemperature"), model().at(time).outdoorTemperature);
    EXPECT_EQ(values.at("rainIncrement"), model().rain(time - 300, time));
    EXPECT_EQ(values.at("rainToday"), model().rainToday(time));
    EXPECT_TRUE(values.contains("uvIndex"));
    EXPECT_FALSE(values.contains("outdoorDewPoint"));
}

TEST(ValueNoise, IsSmoothBoundedAndReproducible) {
    const ValueNoise noise(42);
    for (int index = 0; index < 20000; ++index) {
        const double value = noise.smooth(3, index * 0.37, 10);
        ASSERT_GE(value, -1);
        ASSERT_LE(value, 1);
        ASSERT_NEAR(value, noise.smooth(3, index * 0.37 + 0.01, 10), 0.01);
    }
    EXPECT_EQ(noise.smooth(3, -123.4, 10), ValueNoise(42).smooth(3, -123.4, 10));
    EXPECT_NE(noise.unit(1, 5), noise.unit(2, 5));
    EXPECT_NE(noise.unit(1, 5), noise.unit(1, 6));
    EXPECT_NE(noise.unit(1, 5), ValueNoise(43).unit(1, 5));
}

}  // namespace
}  // namespace zor
