#include "host/foundation/XmlPropertyListScalars.h"

#include <chrono>

namespace zor {

std::string_view trimmed(std::string_view text) {
    const auto start = text.find_first_not_of(xmlWhiteSpace);
    if (start == text.npos) return {};
    return text.substr(start, text.find_last_not_of(xmlWhiteSpace) - start + 1);
}

std::optional<Date> dateFromXml(std::string_view text) {
    constexpr std::string_view pattern = "dddd-dd-ddTdd:dd:ddZ";
    if (text.size() != pattern.size()) return {};
    for (std::size_t index = 0; index < text.size(); ++index) {
        const bool isDigit = text[index] >= '0' && text[index] <= '9';
        if (pattern[index] == 'd' ? !isDigit : text[index] != pattern[index]) return {};
    }
    const auto field = [&](std::size_t start, std::size_t length) {
        return *numberFrom<int>(text.substr(start, length));
    };
    namespace chrono = std::chrono;
    const chrono::year_month_day day{chrono::year(field(0, 4)), chrono::month(static_cast<unsigned>(field(5, 2))),
                                     chrono::day(static_cast<unsigned>(field(8, 2)))};
    const int hour = field(11, 2);
    const int minute = field(14, 2);
    const int second = field(17, 2);
    if (!day.ok() || hour > 23 || minute > 59 || second > 60) return {};
    const auto days = chrono::sys_days(day) - chrono::sys_days(chrono::year(2001) / 1 / 1);
    return Date{static_cast<double>(days.count()) * 86'400 + hour * 3600 + minute * 60 + second};
}

std::optional<Bytes> bytesFromBase64(std::string_view text) {
    constexpr std::string_view alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    Bytes bytes;
    bytes.reserve(text.size() / 4 * 3);
    std::uint32_t bits = 0;
    int held = 0;
    int padding = 0;
    for (const char character : text) {
        if (xmlWhiteSpace.find(character) != xmlWhiteSpace.npos) continue;
        if (character == '=') {
            ++padding;
            continue;
        }
        const auto digit = alphabet.find(character);
        if (digit == alphabet.npos || padding > 0) return {};
        bits = (bits << 6 | static_cast<std::uint32_t>(digit)) & 0xFFFFFF;
        held += 6;
        if (held >= 8) {
            held -= 8;
            bytes.push_back(static_cast<std::uint8_t>(bits >> held));
        }
    }
    // Left over are no bits, or those that fill up the last byte's digit; six would be a digit without a byte.
    const bool whole = held < 6 && padding <= 2;
    return whole ? std::optional(std::move(bytes)) : std::nullopt;
}

}  // namespace zor
