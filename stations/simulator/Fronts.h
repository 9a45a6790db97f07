#pragma once

#include "stations/simulator/ValueNoise.h"

namespace zor {

/// What the cold fronts around a moment do to the weather. All but `veer` are strengths from 0 to about 1.
struct FrontalWeather {
    /// Low pressure, deepest at the passage.
    double trough = 0;
    /// Warm air ahead of the front, and cold air behind it.
    double warmth = 0;
    double cold = 0;
    /// Degrees that the wind has turned to the right; negative (backed) ahead of the front.
    double veer = 0;
    double wind = 0;
    double overcast = 0;
    /// Steady rain at the front, and showers in the cold air.
    double band = 0;
    double showers = 0;
};

/// One front passes in every period of four days, at a random moment of it.
FrontalWeather frontalWeather(const ValueNoise& noise, Seconds time);

}  // namespace zor
