#include "stations/support/DriverThread.h"

#include <chrono>

#include "host/foundation/MainQueue.h"

namespace zor {

/// Shared with the work that waits in the main queue, which may outlive the driver.
struct DriverThread::Road {
    StationDriver::Events events;
    // Held during an event, so that stopping on another thread waits for its end; recursive, so that an event may stop
    // the driver.
    std::recursive_mutex mutex;
    bool open = true;
};

void DriverThread::start(StationDriver::Events events, std::function<void(std::stop_token)> work) {
    stop();
    road_ = std::make_shared<Road>();
    road_->events = std::move(events);
    trouble_.clear();
    thread_ = std::jthread(std::move(work));
}

void DriverThread::stop() {
    if (!thread_.joinable()) return;
    {
        const std::lock_guard lock(road_->mutex);
        road_->open = false;
    }
    thread_.request_stop();
    thread_.join();
}

bool DriverThread::sleep(const std::stop_token& stop, double seconds) {
    std::unique_lock lock(sleepMutex_);
    wake_.wait_for(lock, stop, std::chrono::duration<double>(seconds), [] { return false; });
    return !stop.stop_requested();
}

void DriverThread::deliver(Reading reading) {
    MainQueue::shared().post([road = road_, reading = std::move(reading)]() mutable {
        const std::lock_guard lock(road->mutex);
        if (road->open && road->events.reading) road->events.reading(std::move(reading));
    });
}

bool DriverThread::isDelivered() const {
    // Whatever is under way holds the road, also where the queue drops it.
    return road_.use_count() == 1;
}

void DriverThread::report(const std::string& trouble) {
    if (trouble == trouble_) return;
    trouble_ = trouble;
    MainQueue::shared().post([road = road_, trouble] {
        const std::lock_guard lock(road->mutex);
        if (road->open && road->events.trouble) road->events.trouble(trouble);
    });
}

}  // namespace zor
