#include "web/WorkerPool.h"

#include <chrono>
#include <utility>

#include "host/foundation/MainQueue.h"

namespace zor {

WorkerPool::WorkerPool(unsigned threads) {
    for (unsigned count = 0; count < threads; ++count) threads_.emplace_back([this] { run(); });
}

void WorkerPool::add(Work work) {
    {
        const std::lock_guard lock(mutex_);
        if (!isEnding_) {
            waiting_.push_back(std::move(work));
            added_.notify_one();
            return;
        }
    }
    work(true);
}

void WorkerPool::run() {
    std::unique_lock lock(mutex_);
    while (true) {
        added_.wait(lock, [&] { return isEnding_ || !waiting_.empty(); });
        if (waiting_.empty()) return;
        Work work = std::move(waiting_.front());
        waiting_.pop_front();
        ++running_;
        const bool isEnding = isEnding_;
        lock.unlock();
        work(isEnding);
        work = nullptr;
        lock.lock();
        --running_;
        done_.notify_all();
    }
}

void WorkerPool::stop() {
    auto& queue = MainQueue::shared();
    const bool isMainThread = queue.isMainThread();
    std::unique_lock lock(mutex_);
    isEnding_ = true;
    added_.notify_all();
    while (running_ > 0 || !waiting_.empty()) {
        if (isMainThread) {
            lock.unlock();
            queue.run();
            lock.lock();
        }
        done_.wait_for(lock, std::chrono::milliseconds(10));
    }
    lock.unlock();
    for (auto& thread : threads_) thread.join();
    threads_.clear();
}

}  // namespace zor
