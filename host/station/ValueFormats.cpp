#include "host/station/ValueFormats.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace zor {

namespace {

constexpr auto formats = std::to_array<ValueFormat>({
    {valueWithShortUnitFormat, "Value with Unit"},
    {plainValueFormat, "Value"},
    {valueWithLongUnitFormat, "Value with Long Unit"},
    {compassPointFormat, "Compass Point"},
});

constexpr std::array<std::string_view, 16> compassPoints = {"N", "NNE", "NE", "ENE", "E", "ESE", "SE", "SSE",
                                                            "S", "SSW", "SW", "WSW", "W", "WNW", "NW", "NNW"};

/// The same in every locale; a value that rounds to zero has no sign.
std::string fixedNumber(double value, int decimals) {
    // The largest number has 309 digits before the point.
    std::array<char, 352> buffer;
    const auto* end =
        std::to_chars(buffer.begin(), buffer.end(), value, std::chars_format::fixed, std::clamp(decimals, 0, 17)).ptr;
    const std::string_view text(buffer.data(), end);
    const bool isNegativeZero = text.front() == '-' && text.find_first_not_of("-0.") == std::string_view::npos;
    return std::string(text.substr(isNegativeZero ? 1 : 0));
}

std::string withUnit(std::string number, std::string_view unit) {
    if (unit.empty()) return number;
    // The sign of an angle stands close; every other unit keeps its distance.
    if (unit != "°") number += ' ';
    return number += unit;
}

}  // namespace

std::span<const ValueFormat> valueFormats() {
    return formats;
}

std::string formatValue(std::optional<double> value, const Unit& unit, std::string_view format, int decimals) {
    if (!value || !std::isfinite(*value)) return std::string(missingValueText);
    if (format == compassPointFormat && unit.quantity == Quantity::direction) return std::string(compassPoint(*value));
    auto number = fixedNumber(*value, decimals < 0 ? unit.decimals : decimals);
    if (format == valueWithShortUnitFormat) return withUnit(std::move(number), unit.shortName);
    if (format == valueWithLongUnitFormat) return withUnit(std::move(number), unit.longName);
    return number;
}

std::string_view compassPoint(double degrees) {
    if (!std::isfinite(degrees)) return missingValueText;
    double turns = std::fmod(degrees, 360) / 360;
    if (turns < 0) turns += 1;
    return compassPoints[static_cast<std::size_t>(turns * 16 + 0.5) % 16];
}

}  // namespace zor
