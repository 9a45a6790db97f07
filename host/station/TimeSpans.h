#pragma once

#include <vector>

#include "host/station/Reading.h"

namespace zor {

struct TimeSpan {
    Seconds from = 0;
    Seconds to = 0;
    bool operator==(const TimeSpan&) const = default;
};

/// A set of moments as the fewest closed spans, ascending.
class TimeSpans {
public:
    /// A span whose end lies before its start adds nothing.
    void add(TimeSpan span);
    /// The parts of `span` that are not there; each keeps the end points that it shares with its neighbours.
    std::vector<TimeSpan> missing(TimeSpan span) const;
    void clear() { spans_.clear(); }
    const std::vector<TimeSpan>& all() const { return spans_; }

private:
    std::vector<TimeSpan> spans_;
};

}  // namespace zor
