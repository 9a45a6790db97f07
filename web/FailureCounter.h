#pragma once

#include <chrono>
#include <cstddef>
#include <deque>
#include <map>
#include <optional>

#include "web/InternetAddress.h"

namespace zor {

/// Who guesses at the token: ten failures within a minute shut a client out until the first of them is a minute old.
class FailureCounter {
public:
    using Time = std::chrono::steady_clock::time_point;
    static constexpr std::size_t failureLimit = 10;
    static constexpr std::chrono::seconds window{60};
    /// Clients remembered at the same time; beyond them the one whose last failure is the oldest is forgotten.
    static constexpr std::size_t clientLimit = 1024;

    void count(const InternetAddress& client, Time now);
    /// How long the client is shut out from now on, at least a second; nothing where it is not.
    std::optional<std::chrono::seconds> shutOut(const InternetAddress& client, Time now) const;
    std::size_t clientCount() const { return failures_.size(); }

private:
    /// The last failures of each, at most the limit, the oldest first; never empty.
    std::map<InternetAddress, std::deque<Time>> failures_;
};

}  // namespace zor
