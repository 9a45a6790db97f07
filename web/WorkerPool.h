#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace zor {

/// Threads for work that waits. Every piece of work that is added is done.
class WorkerPool {
public:
    /// Told whether the pool is ending, so that there is no time for more than a word.
    using Work = std::function<void(bool isEnding)>;

    explicit WorkerPool(unsigned threads);
    ~WorkerPool() { stop(); }
    WorkerPool(const WorkerPool&) = delete;
    WorkerPool& operator=(const WorkerPool&) = delete;

    /// Any thread; done at once, by the caller, once the pool has ended.
    void add(Work work);
    /// Comes back when all work is done. On the main thread it runs the main queue meanwhile, for the sake of work that
    /// waits for it.
    void stop();

private:
    void run();

    std::mutex mutex_;
    std::condition_variable added_;
    std::condition_variable done_;
    std::deque<Work> waiting_;
    unsigned running_ = 0;
    bool isEnding_ = false;
    std::vector<std::thread> threads_;
};

}  // namespace zor
