#pragma once

#include <optional>
#include <vector>

#include "host/foundation/Color.h"

namespace zor {

/// From this value on, in the unit shown, the colour holds.
struct Threshold {
    double value = 0;
    Color color;
    bool operator==(const Threshold&) const = default;
};

/// {"value": 30, "color": "#ff3b30ff"}; the value must be finite.
template <>
struct ValueConversion<Threshold> : detail::WithDefault<Threshold> {
    static Value to(const Threshold& threshold);
    static std::optional<Threshold> from(const Value& value);
};

/// Ascending by value.
using Thresholds = std::vector<Threshold>;

Thresholds sortedThresholds(Thresholds thresholds);
/// The colour of the last threshold that the value has reached, `below` where it has reached none.
Color colorForValue(const Thresholds& thresholds, double value, Color below);

}  // namespace zor
