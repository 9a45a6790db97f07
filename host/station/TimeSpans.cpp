#include "host/station/TimeSpans.h"

#include <algorithm>

namespace zor {

void TimeSpans::add(TimeSpan span) {
    if (!(span.from <= span.to)) return;
    const auto first = std::ranges::lower_bound(spans_, span.from, {}, &TimeSpan::to);
    const auto last = std::ranges::upper_bound(first, spans_.end(), span.to, {}, &TimeSpan::from);
    if (first != last) {
        span.from = std::min(span.from, first->from);
        span.to = std::max(span.to, std::prev(last)->to);
    }
    spans_.insert(spans_.erase(first, last), span);
}

std::vector<TimeSpan> TimeSpans::missing(TimeSpan span) const {
    std::vector<TimeSpan> gaps;
    auto next = std::ranges::lower_bound(spans_, span.from, {}, &TimeSpan::to);
    while (span.from <= span.to) {
        if (next == spans_.end() || next->from > span.to) {
            gaps.push_back(span);
            break;
        }
        if (next->from > span.from) gaps.push_back({span.from, next->from});
        if (next->to >= span.to) break;
        span.from = next->to;
        ++next;
    }
    return gaps;
}

}  // namespace zor
