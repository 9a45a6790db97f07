#pragma once

#include <functional>
#include <utility>

#include "host/station/Reading.h"

namespace zor {

/// A station's own time, which says what "today" is for it: the computer's, unless its driver has another clock, as
/// recorded stations and those that run faster than real time do. Main thread only.
class StationTime {
public:
    Seconds now() const { return clock_ ? clock_() : zor::now(); }
    /// No clock is the computer's.
    void setClock(std::function<Seconds()> clock) { clock_ = std::move(clock); }

private:
    std::function<Seconds()> clock_;
};

}  // namespace zor
