#pragma once
// How a value becomes text.

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "host/station/Units.h"

namespace zor {

/// What an instrument shows in place of a value that is not there.
inline constexpr std::string_view missingValueText = "--";
/// "21.5 °C".
inline constexpr std::string_view valueWithShortUnitFormat = "unitStringValueWithUnitShort";
/// "21.5".
inline constexpr std::string_view plainValueFormat = "unitStringValue";
/// "21.5 degrees Celsius".
inline constexpr std::string_view valueWithLongUnitFormat = "unitStringValueWithUnitLong";
/// A direction as one of sixteen compass points ("NNW"); other quantities as the plain value.
inline constexpr std::string_view compassPointFormat = "compassPoint";

struct ValueFormat {
    std::string_view name;
    std::string_view displayName;
};
std::span<const ValueFormat> valueFormats();

/// `value` in `unit`. An unknown format counts as plainValueFormat. `decimals` below 0: the unit's usual ones.
std::string formatValue(std::optional<double> value, const Unit& unit, std::string_view format, int decimals = -1);
/// "N", "NNE" ... for degrees clockwise from north.
std::string_view compassPoint(double degrees);

}  // namespace zor
