#include "host/instruments/DateFormat.h"

#include <gtest/gtest.h>
#include <stdlib.h>
#include <time.h>

#include <cmath>
#include <limits>

namespace zor {
namespace {

/// A Monday.
const DateParts date{.year = 2026,
                     .month = 7,
                     .day = 6,
                     .weekday = 1,
                     .dayOfYear = 187,
                     .hour = 9,
                     .minute = 5,
                     .second = 3,
                     .millisecond = 42,
                     .utcOffsetSeconds = 7200,
                     .zoneName = "CEST"};

TEST(DateFormat, TheUsualPattern) {
    EXPECT_EQ(formatDate("EEEE, d MMMM yyyy HH:mm", date), "Monday, 6 July 2026 09:05");
}

TEST(DateFormat, EveryLetter) {
    const std::vector<std::pair<const char*, const char*>> expected{
        {"G", "AD"},
        {"GGGG", "Anno Domini"},
        {"GGGGG", "A"},
        {"y", "2026"},
        {"yy", "26"},
        {"yyyy", "2026"},
        {"yyyyy", "02026"},
        {"u", "2026"},
        {"Q", "3"},
        {"QQ", "03"},
        {"QQQ", "Q3"},
        {"QQQQ", "3rd quarter"},
        {"q", "3"},
        {"M", "7"},
        {"MM", "07"},
        {"MMM", "Jul"},
        {"MMMM", "July"},
        {"MMMMM", "J"},
        {"LLLL", "July"},
        {"D", "187"},
        {"DDDD", "0187"},
        {"d", "6"},
        {"dd", "06"},
        {"E", "Mon"},
        {"EE", "Mon"},
        {"EEE", "Mon"},
        {"EEEE", "Monday"},
        {"EEEEE", "M"},
        {"EEEEEE", "Mo"},
        {"e", "1"},
        {"ee", "01"},
        {"eee", "Mon"},
        {"c", "1"},
        {"cccc", "Monday"},
        {"a", "AM"},
        {"H", "9"},
        {"HH", "09"},
        {"h", "9"},
        {"hh", "09"},
        {"K", "9"},
        {"k", "9"},
        {"m", "5"},
        {"mm", "05"},
        {"s", "3"},
        {"ss", "03"},
        {"S", "0"},
        {"SS", "04"},
        {"SSS", "042"},
        {"SSSSS", "04200"},
        {"z", "CEST"},
        {"zzzz", "GMT+02:00"},
        {"Z", "+0200"},
        {"ZZZZ", "GMT+02:00"},
        {"ZZZZZ", "+02:00"},
        {"X", "+02"},
        {"XX", "+0200"},
        {"XXX", "+02:00"},
        {"x", "+02"},
        {"xxx", "+02:00"},
    };
    for (const auto& [pattern, text] : expected) EXPECT_EQ(formatDate(pattern, date), text) << pattern;
}

TEST(DateFormat, TheClockOfTwelveHours) {
    const auto hours = [](int hour) {
        DateParts moment = date;
        moment.hour = hour;
        return formatDate("h a K k", moment);
    };
    EXPECT_EQ(hours(0), "12 AM 0 24");
    EXPECT_EQ(hours(11), "11 AM 11 11");
    EXPECT_EQ(hours(12), "12 PM 0 12");
    EXPECT_EQ(hours(23), "11 PM 11 23");
}

TEST(DateFormat, OffsetsWestOfGreenwichWithMinutesAndNone) {
    DateParts moment = date;
    moment.utcOffsetSeconds = -(3 * 3600 + 30 * 60);
    EXPECT_EQ(formatDate("X XXX Z zzzz", moment), "-0330 -03:30 -0330 GMT-03:30");
    moment.utcOffsetSeconds = 0;
    EXPECT_EQ(formatDate("X x ZZZZZ zzzz", moment), "Z +00 Z GMT");
}

TEST(DateFormat, QuotesAndOtherCharactersStandForThemselves) {
    EXPECT_EQ(formatDate("'day' d", date), "day 6");
    EXPECT_EQ(formatDate("h 'o''clock'", date), "9 o'clock");
    EXPECT_EQ(formatDate("d '' d", date), "6 ' 6");
    EXPECT_EQ(formatDate("d 'open yyyy", date), "6 open yyyy");
    EXPECT_EQ(formatDate("dd.MM.yyyy \xE2\x80\x93 HH:mm", date), "06.07.2026 \xE2\x80\x93 09:05");
    EXPECT_EQ(formatDate("", date), "");
    EXPECT_EQ(formatDate("'", date), "");
    EXPECT_EQ(formatDate("bb", date), "bb");
}

TEST(DateFormat, EveryMonthAndWeekdayHasItsName) {
    DateParts moment = date;
    std::string months;
    for (moment.month = 1; moment.month <= 12; ++moment.month) months += formatDate("MMM", moment);
    EXPECT_EQ(months, "JanFebMarAprMayJunJulAugSepOctNovDec");
    std::string weekdays;
    for (moment.weekday = 0; moment.weekday < 7; ++moment.weekday) weekdays += formatDate("EEEEEEe", moment);
    EXPECT_EQ(weekdays, "Su7Mo1Tu2We3Th4Fr5Sa6");
}

/// Another zone for the time of a test.
class Zone {
public:
    explicit Zone(const char* name) {
        ::setenv("TZ", name, 1);
        ::tzset();
    }
    ~Zone() {
        ::unsetenv("TZ");
        ::tzset();
    }
};

TEST(DateFormat, LocalPartsOfAMoment) {
    const Zone zone("EST5");
    // 2001-01-01 00:00:00.25 UTC.
    const auto parts = localDateParts(978307200.25);
    ASSERT_TRUE(parts);
    EXPECT_EQ(formatDate("yyyy-MM-dd HH:mm:ss.SSS Z z EEEE D", *parts), "2000-12-31 19:00:00.250 -0500 EST Sunday 366");
}

TEST(DateFormat, LocalPartsBeforeTheEpoch) {
    const Zone zone("UTC0");
    const auto parts = localDateParts(-0.5);
    ASSERT_TRUE(parts);
    EXPECT_EQ(formatDate("yyyy-MM-dd HH:mm:ss.SSS", *parts), "1969-12-31 23:59:59.500");
}

TEST(DateFormat, NoPartsOfAMomentThatNoCalendarNames) {
    EXPECT_FALSE(localDateParts(std::nan("")));
    EXPECT_FALSE(localDateParts(std::numeric_limits<double>::infinity()));
    EXPECT_FALSE(localDateParts(-1e300));
}

}  // namespace
}  // namespace zor
