#include "stations/simulator/Fronts.h"

#include <cmath>

namespace zor {
namespace {

constexpr Seconds kHour = 3600;
constexpr Seconds kPeriod = 96 * kHour;
constexpr std::uint32_t kPassage = 101;
constexpr std::uint32_t kStrength = 102;

/// Rises from 0 to 1 between the first two moments and falls back between the last two.
double pulse(double value, double riseFrom, double riseTo, double fallFrom, double fallTo) {
    return ease(value, riseFrom, riseTo) * (1 - ease(value, fallFrom, fallTo));
}

}  // namespace

FrontalWeather frontalWeather(const ValueNoise& noise, Seconds time) {
    FrontalWeather sum;
    const auto period = static_cast<std::int64_t>(std::floor(time / kPeriod));
    // A front is felt from 30 hours before to 64 hours after its passage: no further than the periods beside this one.
    for (auto index = period - 1; index <= period + 1; ++index) {
        const double position = static_cast<double>(index) + 0.15 + 0.7 * noise.unit(kPassage, index);
        const double strength = 0.3 + 0.7 * noise.unit(kStrength, index);
        const double hours = (time - position * kPeriod) / kHour;
        sum.trough += strength * pulse(hours, -30, 0, 0, 18);
        sum.warmth += strength * pulse(hours, -24, -8, -0.7, 0.7);
        sum.cold += strength * pulse(hours, -0.7, 0.7, 12, 60);
        sum.veer += strength * (65 * pulse(hours, -0.5, 0.5, 10, 64) - 35 * pulse(hours, -24, -2, -0.5, 0.5));
        sum.wind += strength * pulse(hours, -18, -1, 3, 24);
        sum.overcast += strength * pulse(hours, -14, -5, 1, 4);
        sum.band += strength * pulse(hours, -5, -2.5, 0.3, 1.6);
        sum.showers += strength * pulse(hours, 1, 3, 10, 20);
    }
    return sum;
}

}  // namespace zor
