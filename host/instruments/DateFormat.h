#pragma once
// Dates as text, by patterns of the Unicode date field letters (Unicode Technical Standard #35, part 4).

#include <optional>
#include <string>
#include <string_view>

#include "host/station/Reading.h"

namespace zor {

/// A moment as a calendar and a clock show it.
struct DateParts {
    int year = 1970;
    /// 1 to 12.
    int month = 1;
    int day = 1;
    /// 0 is Sunday.
    int weekday = 4;
    /// From 1.
    int dayOfYear = 1;
    int hour = 0;
    int minute = 0;
    int second = 0;
    int millisecond = 0;
    /// East of Greenwich.
    int utcOffsetSeconds = 0;
    /// "CET".
    std::string zoneName = "UTC";
};

/// In the local time zone; nothing for a moment that no calendar names.
std::optional<DateParts> localDateParts(Seconds time);

/// "EEEE, d MMMM yyyy HH:mm" gives "Monday, 6 July 2026 09:05". Letters: G y u Q q M L D d E e c a H h K k m s S z Z X
/// x with their usual repetitions, in English; text between quotes and every other character stand for themselves, two
/// quotes for one.
std::string formatDate(std::string_view pattern, const DateParts& date);

}  // namespace zor
