#pragma once
// What a station driver hands over.

#include <optional>
#include <string>
#include <vector>

namespace zor {

/// Seconds since 1970-01-01 UTC.
using Seconds = double;

struct Measurement {
    std::string key;
    /// In the base unit of the property's quantity; nothing where the sensor has no value.
    std::optional<double> value;
};

/// All measurements of one moment.
struct Reading {
    Seconds time = 0;
    std::vector<Measurement> measurements;
};

/// One value of one property in its history, in the base unit.
struct Sample {
    Seconds time = 0;
    double value = 0;
    bool operator==(const Sample&) const = default;
};

/// The wall clock, which tests and faster-than-real-time stations may replace; no clock sets the wall clock again.
/// Any thread.
Seconds now();
void setClock(Seconds (*clock)());

}  // namespace zor
