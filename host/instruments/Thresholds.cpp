#include "host/instruments/Thresholds.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace zor {

Value ValueConversion<Threshold>::to(const Threshold& threshold) {
    return Value::Dictionary{{"value", threshold.value}, {"color", threshold.color.text()}};
}

std::optional<Threshold> ValueConversion<Threshold>::from(const Value& value) {
    const auto number = value["value"].number();
    const auto color = Color::fromText(value["color"].asString());
    if (!number || !std::isfinite(*number) || !color) return {};
    return Threshold{*number, *color};
}

Thresholds sortedThresholds(Thresholds thresholds) {
    std::ranges::stable_sort(thresholds, {}, &Threshold::value);
    return thresholds;
}

Color colorForValue(const Thresholds& thresholds, double value, Color below) {
    const auto next = std::ranges::upper_bound(thresholds, value, {}, &Threshold::value);
    return next == thresholds.begin() ? below : std::prev(next)->color;
}

}  // namespace zor
