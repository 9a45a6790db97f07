#pragma once

#include "host/station/Units.h"

namespace zor {

/// What a scale for a quantity should cover, in its base unit.
struct QuantityRange {
    /// What a gauge shows: usual weather, not records.
    double least;
    double greatest;
    /// A plot never magnifies more than this, so that a sensor's noise stays small.
    double smallestSpan;
    /// A plot's axis begins at zero.
    bool fromZero;
};

const QuantityRange& rangeOfQuantity(Quantity quantity);

}  // namespace zor
