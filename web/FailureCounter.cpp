#include "web/FailureCounter.h"

#include <algorithm>

namespace zor {

void FailureCounter::count(const InternetAddress& client, Time now) {
    if (!failures_.contains(client) && failures_.size() >= clientLimit) {
        failures_.erase(std::ranges::min_element(failures_, {}, [](const auto& each) { return each.second.back(); }));
    }
    auto& times = failures_[client];
    times.push_back(now);
    if (times.size() > failureLimit) times.pop_front();
}

std::optional<std::chrono::seconds> FailureCounter::shutOut(const InternetAddress& client, Time now) const {
    const auto found = failures_.find(client);
    if (found == failures_.end() || found->second.size() < failureLimit) return {};
    const auto end = found->second.front() + window;
    if (end <= now) return {};
    return std::max(std::chrono::seconds(1), std::chrono::ceil<std::chrono::seconds>(end - now));
}

}  // namespace zor
