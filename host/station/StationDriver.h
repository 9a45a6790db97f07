#pragma once

#include <functional>
#include <memory>
#include <string>

#include "host/foundation/Result.h"
#include "host/foundation/Value.h"
#include "host/station/History.h"
#include "host/station/Reading.h"

namespace zor {

/// Reads one kind of station. Runs on a thread of its own; hands complete readings over through the main queue.
class StationDriver {
public:
    struct Events {
        /// Main thread.
        std::function<void(Reading)> reading;
        /// Main thread: a sentence that says what is wrong now; empty when it works again.
        std::function<void(std::string)> trouble;
    };

    virtual ~StationDriver() = default;
    /// The station's name for a person, such as the place it stands at.
    virtual std::string stationName() const = 0;
    /// The newest reading that is there without waiting, for instant display; may have no measurements.
    virtual Reading currentReading() = 0;
    /// The station's own time. Any thread.
    virtual Seconds now() const { return zor::now(); }
    virtual void start(Events events) = 0;
    /// Returns when no further event can come.
    virtual void stop() = 0;
    /// The driver's own archive, or none where the history store keeps what comes in.
    virtual std::shared_ptr<HistoryLoader> historyLoader() { return {}; }
    /// Whether what comes in belongs into the history store.
    virtual bool isLive() const = 0;
};

using DriverResult = Result<std::shared_ptr<StationDriver>>;

}  // namespace zor
