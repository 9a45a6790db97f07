#include "stations/support/RecordedClock.h"

#include <algorithm>
#include <cmath>

#include "host/station/DerivedValues.h"

namespace zor {

namespace {

/// Recorders write every few minutes, some every half hour.
constexpr Seconds kPresent = 3600;

}  // namespace

void RecordedClock::record(Seconds moment) {
    newest_ = std::max(newest_, moment);
    if (std::abs(zor::now() - moment) <= kPresent) isLive_ = true;
}

Seconds RecordedClock::now() const {
    if (isLive_ || newest_ <= 0) return zor::now();
    // What was measured up to midnight belongs to the day that ends then.
    return localMidnight(newest_) == newest_ ? newest_ - 1 : newest_;
}

}  // namespace zor
