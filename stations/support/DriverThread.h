#pragma once
// What every driver with a thread needs: the thread, a wait that ends when the driver stops, and the road of readings
// and trouble to the main thread.

#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <stop_token>
#include <string>
#include <thread>

#include "host/station/StationDriver.h"

namespace zor {

class DriverThread {
public:
    DriverThread() = default;
    ~DriverThread() { stop(); }
    DriverThread(const DriverThread&) = delete;
    DriverThread& operator=(const DriverThread&) = delete;

    /// Runs the work on a thread of its own; one that still runs is stopped first. The work ends soon after the token
    /// asks for it.
    void start(StationDriver::Events events, std::function<void(std::stop_token)> work);
    /// Returns when the work has ended and no further event can come, also none that waits in the main queue. May be
    /// called from within an event.
    void stop();

    // For the work, on its thread.

    /// False, at once, when it is time to end.
    bool sleep(const std::stop_token& stop, double seconds);
    void deliver(Reading reading);
    /// Whether everything that was delivered has arrived: the main thread keeps up.
    bool isDelivered() const;
    /// A sentence that says what is wrong now, empty when it works again. The same one is not told twice in a row.
    void report(const std::string& trouble);

private:
    struct Road;

    std::shared_ptr<Road> road_;
    std::string trouble_;
    std::mutex sleepMutex_;
    std::condition_variable_any wake_;
    std::jthread thread_;
};

}  // namespace zor
