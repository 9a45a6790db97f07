#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>

#include "host/foundation/MainQueue.h"

namespace zor::test {

/// The test's thread as the main thread: runs what drivers post until something holds.
class MainLoop {
public:
    MainLoop() {
        MainQueue::shared().attach([this] {
            {
                const std::lock_guard lock(mutex_);
                isDue_ = true;
            }
            wake_.notify_one();
        });
    }
    ~MainLoop() {
        MainQueue::shared().attach({});
        MainQueue::shared().run();
    }
    MainLoop(const MainLoop&) = delete;
    MainLoop& operator=(const MainLoop&) = delete;

    /// False where it does not hold within a minute, which no working driver takes.
    bool runUntil(const std::function<bool()>& holds) {
        const auto end = std::chrono::steady_clock::now() + std::chrono::minutes(1);
        for (;;) {
            MainQueue::shared().run();
            if (holds()) return true;
            std::unique_lock lock(mutex_);
            if (!wake_.wait_until(lock, end, [this] { return isDue_; })) return false;
            isDue_ = false;
        }
    }

private:
    std::mutex mutex_;
    std::condition_variable wake_;
    bool isDue_ = false;
};

}  // namespace zor::test
