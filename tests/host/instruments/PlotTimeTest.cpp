#include "host/instruments/PlotTime.h"

#include <gmock/gmock.h>

#include "tests/host/instruments/LocalTime.h"

namespace zor {

void PrintTo(const TimeSpan& span, std::ostream* out) {
    *out << static_cast<std::int64_t>(span.from) << " to " << static_cast<std::int64_t>(span.to);
}

namespace {

using test::centralEurope;
using test::LocalTime;
using testing::ElementsAre;

constexpr Seconds hour = 3600;
constexpr Seconds day = 24 * hour;
/// 2026-07-06 00:00 UTC, a Monday.
constexpr Seconds monday = 1783296000;

std::vector<std::string> labels(const std::vector<PlotTick>& ticks) {
    std::vector<std::string> texts;
    for (const auto& tick : ticks) texts.push_back(tick.label);
    return texts;
}

std::uint32_t code(PlotPeriod period) {
    return static_cast<std::uint32_t>(period);
}

TEST(PlotPeriods, SpanLocalDaysAndFixedTimes) {
    const LocalTime local("UTC0");
    const Seconds now = monday + 9 * hour;
    EXPECT_EQ(spanOfPeriod(0x70647464, now), (TimeSpan{monday, monday + day}));
    EXPECT_EQ(spanOfPeriod(code(PlotPeriod::twoDays), now), (TimeSpan{monday - day, monday + day}));
    EXPECT_EQ(spanOfPeriod(code(PlotPeriod::last24Hours), now), (TimeSpan{now - day, now}));
    EXPECT_EQ(spanOfPeriod(code(PlotPeriod::last7Days), now), (TimeSpan{now - 7 * day, now}));
    EXPECT_EQ(spanOfPeriod(code(PlotPeriod::last30Days), now), (TimeSpan{now - 30 * day, now}));
    EXPECT_EQ(spanOfPeriod(code(PlotPeriod::lastYear), now), (TimeSpan{now - 365 * day, now}));
}

TEST(PlotPeriods, AnUnknownCodeIsToday) {
    const LocalTime local("UTC0");
    EXPECT_EQ(spanOfPeriod(0, monday + 1), (TimeSpan{monday, monday + day}));
    EXPECT_EQ(spanOfPeriod(0x78797a7a, monday + 1), (TimeSpan{monday, monday + day}));
}

TEST(PlotPeriods, DaysOf23And25HoursAreWhole) {
    const LocalTime local(centralEurope);
    // 2026-03-29 and 2026-10-25.
    EXPECT_EQ(spanOfPeriod(code(PlotPeriod::today), 1774742400 + 12 * hour), (TimeSpan{1774738800, 1774821600}));
    EXPECT_EQ(spanOfPeriod(code(PlotPeriod::today), 1792886400 + 12 * hour), (TimeSpan{1792879200, 1792969200}));
    EXPECT_EQ(1774821600 - 1774738800, 23 * 3600);
    EXPECT_EQ(1792969200 - 1792879200, 25 * 3600);
    // From the short day into the next, whole one.
    EXPECT_EQ(spanOfPeriod(code(PlotPeriod::twoDays), 1774742400 + 36 * hour),
              (TimeSpan{1774738800, 1774821600 + day}));
}

TEST(TimeTicks, AreHoursWithinADay) {
    const LocalTime local("UTC0");
    const auto ticks = timeTicks({monday, monday + day}, 8);
    EXPECT_THAT(labels(ticks),
                ElementsAre("00:00", "03:00", "06:00", "09:00", "12:00", "15:00", "18:00", "21:00", "00:00"));
    EXPECT_EQ(ticks[3].position, monday + 9 * hour);
    EXPECT_THAT(labels(timeTicks({monday, monday + day}, 6)),
                ElementsAre("00:00", "04:00", "08:00", "12:00", "16:00", "20:00", "00:00"));
    EXPECT_THAT(labels(timeTicks({monday, monday + day}, 2)), ElementsAre("00:00", "12:00", "00:00"));
    EXPECT_THAT(labels(timeTicks({monday, monday + day}, 0)), ElementsAre("Mon 6", "Tue 7"));
}

TEST(TimeTicks, AreLocal) {
    const LocalTime local(centralEurope);
    const auto ticks = timeTicks({monday - 2 * hour, monday + 22 * hour}, 4);
    EXPECT_THAT(labels(ticks), ElementsAre("00:00", "06:00", "12:00", "18:00", "00:00"));
    EXPECT_EQ(ticks[1].position, monday + 4 * hour);
}

TEST(TimeTicks, NameTheDayAtMidnightWhereDaysMeet) {
    const LocalTime local("UTC0");
    EXPECT_THAT(labels(timeTicks({monday - 12 * hour, monday + 12 * hour}, 6)),
                ElementsAre("12:00", "16:00", "20:00", "Mon 6", "04:00", "08:00", "12:00"));
    EXPECT_THAT(labels(timeTicks({monday - day, monday + day}, 8)),
                ElementsAre("Sun 5", "06:00", "12:00", "18:00", "Mon 6", "06:00", "12:00", "18:00", "Tue 7"));
}

TEST(TimeTicks, LeaveOutAnHourThatTheClockSkips) {
    const LocalTime local(centralEurope);
    const auto ticks = timeTicks({1774738800, 1774821600}, 24);
    ASSERT_EQ(ticks.size(), 24u);
    EXPECT_EQ(ticks[1].label, "01:00");
    EXPECT_EQ(ticks[2].label, "03:00");
    EXPECT_EQ(ticks[2].position, ticks[1].position + hour);
    EXPECT_EQ(ticks.back().position, 1774821600);
}

TEST(TimeTicks, StandAtTheSameHoursOnALongDay) {
    const LocalTime local(centralEurope);
    const auto ticks = timeTicks({1792879200, 1792969200}, 4);
    EXPECT_THAT(labels(ticks), ElementsAre("00:00", "12:00", "00:00"));
    const auto six = timeTicks({1792879200, 1792969200}, 5);
    EXPECT_THAT(labels(six), ElementsAre("00:00", "06:00", "12:00", "18:00", "00:00"));
    EXPECT_EQ(six[1].position, 1792879200 + 7 * hour);
}

TEST(TimeTicks, AreDaysInAWeek) {
    const LocalTime local("UTC0");
    const TimeSpan week{monday - 7 * day + 12 * hour, monday + 12 * hour};
    EXPECT_THAT(labels(timeTicks(week, 7)),
                ElementsAre("Tue 30", "Wed 1", "Thu 2", "Fri 3", "Sat 4", "Sun 5", "Mon 6"));
    EXPECT_THAT(labels(timeTicks(week, 4)), ElementsAre("Tue 30", "Thu 2", "Sat 4", "Mon 6"));
}

TEST(TimeTicks, AreDatesInAMonth) {
    const LocalTime local("UTC0");
    const TimeSpan month{monday - 30 * day + 12 * hour, monday + 12 * hour};
    EXPECT_THAT(labels(timeTicks(month, 6)), ElementsAre("11 Jun", "16 Jun", "21 Jun", "26 Jun", "1 Jul", "6 Jul"));
    EXPECT_THAT(labels(timeTicks(month, 3)), ElementsAre("11 Jun", "21 Jun", "1 Jul"));
}

TEST(TimeTicks, AreMonthsInAYear) {
    const LocalTime local("UTC0");
    const TimeSpan year{monday - 365 * day, monday};
    EXPECT_THAT(labels(timeTicks(year, 6)), ElementsAre("Sep", "Nov", "2026", "Mar", "May", "Jul"));
    EXPECT_THAT(labels(timeTicks(year, 12)),
                ElementsAre("Aug", "Sep", "Oct", "Nov", "Dec", "2026", "Feb", "Mar", "Apr", "May", "Jun", "Jul"));
}

}  // namespace
}  // namespace zor
