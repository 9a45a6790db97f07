#pragma once
// The one road of other threads to the main thread.

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

namespace zor {

class MainQueue {
public:
    static MainQueue& shared();

    /// Makes the calling thread the main thread; `wake` is called from any thread when there is work to run. It must
    /// not call the queue itself; once another is attached it is called no more.
    void attach(std::function<void()> wake);
    bool isMainThread() const;

    /// Runs the work on the main thread, later, in order. A cancelled queue drops it.
    void post(std::function<void()> work);
    /// Runs the work on the main thread and waits for its end; on the main thread itself it runs at once.
    /// False where the queue was cancelled before the work began: the work is then dropped, never run.
    bool sync(std::function<void()> work);
    /// Main thread: runs what is waiting. What the work itself posts waits for the next run.
    void run();
    /// Drops what has not begun, which ends the calls that wait for it, and refuses new work, so that quitting cannot
    /// dead-lock.
    void cancel();
    /// Accepts work again (tests, a second start).
    void reopen();

private:
    struct Call;
    void add(std::shared_ptr<Call> call);

    mutable std::mutex mutex_;
    std::condition_variable finished_;
    std::deque<std::shared_ptr<Call>> waiting_;
    std::function<void()> wake_;
    std::thread::id main_ = std::this_thread::get_id();
    bool cancelled_ = false;
};

}  // namespace zor
