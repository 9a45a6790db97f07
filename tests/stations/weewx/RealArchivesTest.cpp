// Archives that real programs wrote, where this computer has them; the expected numbers were read with sqlite3 and
// converted by hand.

#include <gmock/gmock.h>

#include <algorithm>
#include <numeric>

#include "stations/weewx/WeewxHistory.h"
#include "stations/weewx/WeewxStation.h"
#include "tests/stations/TimeZone.h"
#include "tests/support/SourceFolder.h"

namespace zor {
namespace {

const test::CentralEurope zone;

class RealArchives : public testing::Test {
protected:
    void SetUp() override {
        if (!std::filesystem::exists(folder_)) {
            GTEST_SKIP() << "\n*** " << folder_ << " is not there: THE REAL WEEWX ARCHIVES ARE NOT TESTED ***\n";
        }
    }

    std::vector<Sample> load(const char* file, std::string_view key) {
        return WeewxHistory(folder_ / file).load(key, 0, 4e9);
    }
    Reading newest(const char* file) {
        const auto station = WeewxStation::create({{"file", (folder_ / file).string()}});
        EXPECT_TRUE(station) << station.error().message;
        return (*station)->currentReading();
    }
    static std::optional<double> valueOf(const Reading& reading, std::string_view key) {
        const auto found = std::ranges::find(reading.measurements, key, &Measurement::key);
        return found == reading.measurements.end() ? std::nullopt : found->value;
    }
    static double total(const std::vector<Sample>& samples) {
        return std::accumulate(samples.begin(), samples.end(), 0.0,
                               [](double sum, const Sample& sample) { return sum + sample.value; });
    }

    const std::filesystem::path folder_ = test::sourceFolder() / "../shared/data/weewx";
    static constexpr const char* kUS = "real-us-2015.sdb";
    static constexpr const char* kMetricWX = "simulator-metricwx-45d.sdb";
};

TEST_F(RealArchives, AStationInUSUnitsOfTheOlderSchema) {
    const auto temperature = load(kUS, "outdoorTemperature");
    ASSERT_EQ(temperature.size(), 5839);
    // 32.6064881713956 °F and 81.8875 °F.
    EXPECT_EQ(temperature.front().time, 1434722100);
    EXPECT_NEAR(temperature.front().value, 0.336937873, 1e-8);
    EXPECT_EQ(temperature.back().time, 1436806200);
    EXPECT_NEAR(temperature.back().value, 27.715277778, 1e-8);
    // 3639 wind directions and 8 values of radiation are not NULL.
    EXPECT_EQ(load(kUS, "windDirection").size(), 3639);
    EXPECT_EQ(load(kUS, "windGustDirection").size(), 1829);
    EXPECT_EQ(load(kUS, "solarRadiation").size(), 8);
    EXPECT_TRUE(load(kUS, "extraTemperature1").empty());
    // 3.06 inches of rain in all.
    const auto rain = load(kUS, "rainIncrement");
    EXPECT_EQ(rain.size(), 5839);
    EXPECT_NEAR(total(rain), 77.724, 1e-3);
    // 31.0999909644761 inHg, 0.0000451776 mph.
    EXPECT_NEAR(load(kUS, "barometricPressureRelative").front().value, 1053.16667, 1e-4);
    EXPECT_NEAR(load(kUS, "windSpeed").front().value, 2.01962e-5, 1e-9);

    const Reading last = newest(kUS);
    EXPECT_EQ(last.time, 1436806200);
    // 1.6470547291607 mph.
    EXPECT_NEAR(*valueOf(last, "windSpeed"), 0.736299, 1e-6);
    EXPECT_EQ(*valueOf(last, "rainRate"), 0);
    EXPECT_FALSE(std::ranges::any_of(last.measurements, [](const Measurement& measurement) {
        return measurement.key.starts_with("extra") || measurement.key.starts_with("soil");
    }));
}

TEST_F(RealArchives, ASimulatedStationInMetricUnitsOfTheNewerSchema) {
    const auto temperature = load(kMetricWX, "outdoorTemperature");
    ASSERT_EQ(temperature.size(), 12960);
    EXPECT_EQ(temperature.front().time, 1763337900);
    EXPECT_NEAR(temperature.front().value, 0.317651836868098, 1e-12);
    EXPECT_EQ(temperature.back().time, 1767225600);
    EXPECT_NEAR(temperature.back().value, 0.438850545986006, 1e-12);
    EXPECT_NEAR(load(kMetricWX, "barometricPressureRelative").front().value, 1053.16605252777, 1e-10);
    EXPECT_NEAR(total(load(kMetricWX, "rainIncrement")), 228.6, 1e-6);
    EXPECT_EQ(load(kMetricWX, "feelsLike").size(), 12960);
    const auto days = load(kMetricWX, "rainToday");
    EXPECT_EQ(days.size(), 12960);
    EXPECT_NEAR(std::ranges::max(days, {}, &Sample::value).value, 5.08, 1e-6);

    const Reading last = newest(kMetricWX);
    EXPECT_EQ(last.time, 1767225600);
    EXPECT_NEAR(*valueOf(last, "windSpeed"), 4.47035611535603, 1e-12);
    EXPECT_NEAR(*valueOf(last, "barometricPressureRelative"), 985.439619079776, 1e-10);
}

}  // namespace
}  // namespace zor
