#pragma once

#include <vector>

#include "host/instruments/PlotTick.h"
#include "host/station/Units.h"

namespace zor {

/// A plot's value axis, in the unit shown. The ends are marks themselves.
struct PlotScale {
    double minimum = 0;
    double maximum = 1;
    /// Ascending.
    std::vector<PlotTick> ticks;

    /// 0 at the minimum, 1 at the maximum.
    double fraction(double value) const { return (value - minimum) / (maximum - minimum); }

    /// Covers the values from `least` to `greatest` with at most `mostSteps` (at least 2) steps between its marks. A
    /// direction has the compass from north to north.
    static PlotScale covering(double least, double greatest, const Unit& unit, int mostSteps);
};

}  // namespace zor
