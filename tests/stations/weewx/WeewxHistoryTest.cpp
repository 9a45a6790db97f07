#include "stations/weewx/WeewxHistory.h"

#include <gmock/gmock.h>

#include "tests/stations/TimeZone.h"
#include "tests/stations/weewx/ArchiveFixture.h"
#include "tests/support/TemporaryFolder.h"

namespace zor {
namespace {

const test::CentralEurope zone;

using testing::ElementsAre;
using testing::IsEmpty;

constexpr long long kMidnight = 1751320800;  // 2025-07-01 00:00 Central European summer time

class WeewxHistoryTest : public testing::Test {
protected:
    test::ArchiveWriter archive(const std::string& columns) { return {folder_ / "weewx.sdb", columns}; }
    std::vector<Sample> load(std::string_view key, Seconds from = 0, Seconds to = 4e9) {
        return WeewxHistory(folder_ / "weewx.sdb").load(key, from, to);
    }

    const test::TemporaryFolder folder_;
};

TEST_F(WeewxHistoryTest, GivesTheRowsOfTheSpanBothEndsIncluded) {
    auto weewx = archive("outTemp");
    for (int row = 0; row < 10; ++row) weewx.add(kMidnight + 300 * row, 17, std::to_string(row));
    EXPECT_THAT(load("outdoorTemperature", kMidnight + 600, kMidnight + 1200),
                ElementsAre(Sample{kMidnight + 600, 2}, Sample{kMidnight + 900, 3}, Sample{kMidnight + 1200, 4}));
    EXPECT_THAT(load("outdoorTemperature", kMidnight + 599.5, kMidnight + 600.5),
                ElementsAre(Sample{kMidnight + 600, 2}));
    EXPECT_THAT(load("outdoorTemperature", kMidnight + 601, kMidnight + 899), IsEmpty());
    EXPECT_THAT(load("windSpeed"), IsEmpty());
    EXPECT_THAT(load("noSuchThing"), IsEmpty());
    EXPECT_THAT(load("'; DROP TABLE archive"), IsEmpty());
}

TEST_F(WeewxHistoryTest, DerivesWhatTheArchiveLeavesOut) {
    auto weewx = archive("outTemp, outHumidity, windSpeed, dewpoint, inTemp, inHumidity");
    weewx.add(kMidnight, 17, "20, 50, 3, 9, 20, 50");
    weewx.add(kMidnight + 300, 17, "20, 50, 3, NULL, 20, 50");
    weewx.add(kMidnight + 600, 17, "-10, 50, 8.333333, NULL, NULL, NULL");
    weewx.add(kMidnight + 900, 17, "NULL, 50, 3, NULL, 20, NULL");

    // The archive's own first; 9.26 °C by the Magnus formula.
    const auto dew = load("outdoorDewPoint");
    ASSERT_EQ(dew.size(), 3);
    EXPECT_EQ(dew[0].value, 9);
    EXPECT_NEAR(dew[1].value, 9.26, 0.01);
    EXPECT_NEAR(load("indoorDewPoint").at(0).value, 9.26, 0.01);
    // 30 km/h at -10 °C is -20 in the published table.
    const auto chill = load("windChill");
    ASSERT_EQ(chill.size(), 3);
    EXPECT_EQ(chill[0].value, 20);
    EXPECT_NEAR(chill[2].value, -19.5, 0.1);
    EXPECT_NEAR(load("feelsLike").at(2).value, -19.5, 0.1);
    EXPECT_EQ(load("outdoorHeatIndex").size(), 3);
}

TEST_F(WeewxHistoryTest, RainTodayStartsAnewAtLocalMidnight) {
    auto weewx = archive("rain");
    weewx.add(kMidnight - 600, 17, "1");
    weewx.add(kMidnight - 300, 16, "0.2");
    // The end of an interval of the day before.
    weewx.add(kMidnight, 17, "4");
    weewx.add(kMidnight + 300, 17, "0.5");
    weewx.add(kMidnight + 600, 17, "NULL");
    weewx.add(kMidnight + 900, 1, "1");
    EXPECT_THAT(load("rainToday"),
                ElementsAre(Sample{kMidnight - 600, 1}, Sample{kMidnight - 300, 3}, Sample{kMidnight, 0},
                            Sample{kMidnight + 300, 0.5}, Sample{kMidnight + 900, 25.9}));
    // Wherever the span begins.
    EXPECT_THAT(load("rainToday", kMidnight + 800), ElementsAre(Sample{kMidnight + 900, 25.9}));
}

TEST_F(WeewxHistoryTest, RainOfTheLastHourAndRateFromAmounts) {
    auto weewx = archive("rain");
    for (int row = 1; row <= 24; ++row) weewx.add(kMidnight + 300 * row, 17, row <= 3 ? "1" : "0");
    const auto hour = load("rainLastHour", kMidnight + 3600, kMidnight + 4500);
    EXPECT_THAT(hour, ElementsAre(Sample{kMidnight + 3600, 3}, Sample{kMidnight + 3900, 2}, Sample{kMidnight + 4200, 1},
                                  Sample{kMidnight + 4500, 0}));
    const auto rate = load("rainRate", kMidnight + 900, kMidnight + 1800);
    EXPECT_THAT(rate, ElementsAre(Sample{kMidnight + 900, 12}, Sample{kMidnight + 1200, 8}, Sample{kMidnight + 1500, 4},
                                  Sample{kMidnight + 1800, 0}));
}

TEST_F(WeewxHistoryTest, ThePressureTrendIsTheChangeOverThreeHours) {
    auto weewx = archive("barometer");
    for (int row = 0; row <= 48; ++row) {
        weewx.add(kMidnight + 300 * row, 17, std::to_string(1000 + row * 0.25));
    }
    // The first sample with another at most 20 minutes off three hours before.
    const auto trend = load("barometricPressureTrend");
    ASSERT_EQ(trend.size(), 17);
    EXPECT_EQ(trend.front(), (Sample{kMidnight + 9600, 8}));
    EXPECT_EQ(trend.back(), (Sample{kMidnight + 14400, 9}));
}

TEST_F(WeewxHistoryTest, GivesNothingWhereNothingCanBeRead) {
    EXPECT_THAT(load("outdoorTemperature"), IsEmpty());
    folder_.write("weewx.sdb",
                  "no database at all, and longer than a header of a hundred bytes would have to be: "
                  "........................................");
    EXPECT_THAT(load("outdoorTemperature"), IsEmpty());
}

}  // namespace
}  // namespace zor
