#include "host/instruments/PlotScale.h"

#include <algorithm>
#include <cmath>

#include "host/instruments/NiceStep.h"
#include "host/instruments/QuantityRanges.h"
#include "host/station/ValueFormats.h"

namespace zor {

namespace {

constexpr double fullCircle = 360;
constexpr double allPercents = 100;

PlotScale compassScale(const Unit& unit, int mostSteps) {
    PlotScale scale{.minimum = 0, .maximum = fullCircle, .ticks = {}};
    const double step = mostSteps >= 4 ? fullCircle / 4 : fullCircle / 2;
    for (double degrees = 0; degrees <= fullCircle; degrees += step) {
        scale.ticks.push_back({degrees, formatValue(degrees, unit, compassPointFormat)});
    }
    return scale;
}

}  // namespace

PlotScale PlotScale::covering(double least, double greatest, const Unit& unit, int mostSteps) {
    mostSteps = std::max(mostSteps, 2);
    if (unit.quantity == Quantity::direction) return compassScale(unit, mostSteps);

    const auto& range = rangeOfQuantity(unit.quantity);
    if (range.fromZero) least = std::min(least, 0.0);
    // At great values neighbouring doubles are farther apart than any usual span.
    const double smallest = std::max(range.smallestSpan / unit.scale, std::abs(greatest) * 1e-9);
    if (const double missing = smallest - (greatest - least); missing > 0) {
        if (!range.fromZero) least -= missing / 2;
        greatest = least + smallest;
    }
    if (unit.quantity == Quantity::humidity) {
        const double excess = std::max(0.0, greatest - allPercents);
        least = std::max(0.0, least - excess);
        greatest -= excess;
    }

    NiceStep step(greatest - least, mostSteps);
    while (step.above(greatest) - step.below(least) > (mostSteps + 0.5) * step.size()) step = step.coarser();
    PlotScale scale{.minimum = step.below(least), .maximum = step.above(greatest), .ticks = {}};
    for (const double value : step.multiplesWithin(scale.minimum, scale.maximum)) {
        scale.ticks.push_back({value, formatValue(value, unit, plainValueFormat, step.decimals())});
    }
    return scale;
}

}  // namespace zor
