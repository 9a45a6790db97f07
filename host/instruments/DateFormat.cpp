#include "host/instruments/DateFormat.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <ctime>

namespace zor {

namespace {

constexpr std::array<std::string_view, 12> months{"January",   "February", "March",    "April",
                                                  "May",       "June",     "July",     "August",
                                                  "September", "October",  "November", "December"};
constexpr std::array<std::string_view, 7> weekdays{"Sunday",   "Monday", "Tuesday", "Wednesday",
                                                   "Thursday", "Friday", "Saturday"};

std::string padded(int number, std::size_t width) {
    const std::string digits = std::to_string(std::abs(number));
    const std::string zeros(digits.size() < width ? width - digits.size() : 0, '0');
    return (number < 0 ? "-" : "") + zeros + digits;
}

/// Three letters for a short name, one for the narrow one, two for the shortest weekday.
std::string named(std::string_view name, std::size_t count) {
    switch (count) {
        case 4:
            return std::string(name);
        case 5:
            return std::string(name.substr(0, 1));
        case 6:
            return std::string(name.substr(0, 2));
        default:
            return std::string(name.substr(0, 3));
    }
}

std::string monthText(const DateParts& date, std::size_t count) {
    return count <= 2 ? padded(date.month, count) : named(months[static_cast<std::size_t>(date.month - 1)], count);
}

std::string weekdayText(const DateParts& date, char letter, std::size_t count) {
    // The week starts on Monday where its days are counted.
    if (letter != 'E' && count <= 2) return padded((date.weekday + 6) % 7 + 1, count);
    return named(weekdays[static_cast<std::size_t>(date.weekday)], count);
}

std::string quarterText(const DateParts& date, std::size_t count) {
    constexpr std::array<std::string_view, 4> ordinals{"1st", "2nd", "3rd", "4th"};
    const int quarter = (date.month + 2) / 3;
    switch (count) {
        case 3:
            return "Q" + std::to_string(quarter);
        case 4:
            return std::string(ordinals[static_cast<std::size_t>(quarter - 1)]) + " quarter";
        default:
            return padded(quarter, count == 2 ? 2 : 1);
    }
}

std::string yearText(int year, std::size_t count) {
    return count == 2 ? padded(std::abs(year) % 100, 2) : padded(year, count);
}

std::string eraText(int year, std::size_t count) {
    const bool common = year > 0;
    if (count == 4) return common ? "Anno Domini" : "Before Christ";
    if (count == 5) return common ? "A" : "B";
    return common ? "AD" : "BC";
}

std::string fractionText(int millisecond, std::size_t count) {
    std::string digits = padded(millisecond, 3);
    digits.resize(count, '0');
    return digits;
}

std::string offsetText(int seconds, bool minutes, bool colon) {
    const int total = std::abs(seconds) / 60;
    std::string text = (seconds < 0 ? "-" : "+") + padded(total / 60, 2);
    if (minutes) text += (colon ? ":" : "") + padded(total % 60, 2);
    return text;
}

std::string greenwichText(int seconds, bool full) {
    if (seconds == 0) return "GMT";
    return "GMT" + (full ? offsetText(seconds, true, true) : offsetText(seconds, seconds % 3600 != 0, true));
}

std::string isoOffsetText(int seconds, std::size_t count, bool zulu) {
    if (zulu && seconds == 0) return "Z";
    return offsetText(seconds, count > 1 || seconds % 3600 != 0, count == 3 || count == 5);
}

std::string zoneText(const DateParts& date, char letter, std::size_t count) {
    const int offset = date.utcOffsetSeconds;
    switch (letter) {
        case 'z':
            return count < 4 && !date.zoneName.empty() ? date.zoneName : greenwichText(offset, count >= 4);
        case 'Z':
            if (count == 4) return greenwichText(offset, true);
            return count == 5 ? isoOffsetText(offset, count, true) : offsetText(offset, true, false);
        default:
            return isoOffsetText(offset, count, letter == 'X');
    }
}

/// The text of one field; nothing for a letter that is none.
std::optional<std::string> fieldText(const DateParts& date, char letter, std::size_t count) {
    switch (letter) {
        case 'G':
            return eraText(date.year, count);
        case 'y':
            return yearText(date.year > 0 ? date.year : 1 - date.year, count);
        case 'u':
            return yearText(date.year, count);
        case 'Q':
        case 'q':
            return quarterText(date, count);
        case 'M':
        case 'L':
            return monthText(date, count);
        case 'D':
            return padded(date.dayOfYear, count);
        case 'd':
            return padded(date.day, count);
        case 'E':
        case 'e':
        case 'c':
            return weekdayText(date, letter, count);
        case 'a':
            return date.hour < 12 ? "AM" : "PM";
        case 'H':
            return padded(date.hour, count);
        case 'k':
            return padded(date.hour == 0 ? 24 : date.hour, count);
        case 'K':
            return padded(date.hour % 12, count);
        case 'h':
            return padded(date.hour % 12 == 0 ? 12 : date.hour % 12, count);
        case 'm':
            return padded(date.minute, count);
        case 's':
            return padded(date.second, count);
        case 'S':
            return fractionText(date.millisecond, count);
        case 'z':
        case 'Z':
        case 'X':
        case 'x':
            return zoneText(date, letter, count);
        default:
            return {};
    }
}

/// The quoted text that starts at `index`, which moves behind it. An open quote reaches to the end.
std::string takeQuoted(std::string_view pattern, std::size_t& index) {
    std::string text;
    for (++index; index < pattern.size(); ++index) {
        if (pattern[index] == '\'') {
            if (index + 1 >= pattern.size() || pattern[index + 1] != '\'') break;
            ++index;
        }
        text += pattern[index];
    }
    ++index;
    return text;
}

}  // namespace

std::optional<DateParts> localDateParts(Seconds time) {
    // Years of up to five digits.
    constexpr Seconds furthest = 3e12;
    if (!(std::abs(time) < furthest)) return {};
    const double whole = std::floor(time);
    const auto moment = static_cast<std::time_t>(whole);
    std::tm local{};
    if (!localtime_r(&moment, &local)) return {};
    return DateParts{.year = local.tm_year + 1900,
                     .month = local.tm_mon + 1,
                     .day = local.tm_mday,
                     .weekday = local.tm_wday,
                     .dayOfYear = local.tm_yday + 1,
                     .hour = local.tm_hour,
                     .minute = local.tm_min,
                     .second = local.tm_sec,
                     .millisecond = static_cast<int>((time - whole) * 1000),
                     .utcOffsetSeconds = static_cast<int>(local.tm_gmtoff),
                     .zoneName = local.tm_zone ? local.tm_zone : ""};
}

std::string formatDate(std::string_view pattern, const DateParts& date) {
    std::string text;
    for (std::size_t index = 0; index < pattern.size();) {
        const char letter = pattern[index];
        if (letter == '\'') {
            if (pattern.substr(index).starts_with("''")) {
                text += '\'';
                index += 2;
            } else {
                text += takeQuoted(pattern, index);
            }
            continue;
        }
        const std::size_t end = std::min(pattern.find_first_not_of(letter, index), pattern.size());
        text += fieldText(date, letter, end - index).value_or(std::string(pattern.substr(index, end - index)));
        index = end;
    }
    return text;
}

}  // namespace zor
