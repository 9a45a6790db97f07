#include "host/foundation/MainQueue.h"

#include <utility>

namespace zor {

struct MainQueue::Call {
    enum class State { waiting, running, finished, dropped };

    std::function<void()> work;
    State state = State::waiting;
};

MainQueue& MainQueue::shared() {
    // Never destroyed: worker threads may still ask while the process ends.
    static auto& queue = *new MainQueue;
    return queue;
}

void MainQueue::attach(std::function<void()> wake) {
    const std::lock_guard lock(mutex_);
    main_ = std::this_thread::get_id();
    wake_.swap(wake);
}

bool MainQueue::isMainThread() const {
    const std::lock_guard lock(mutex_);
    return main_ == std::this_thread::get_id();
}

/// The caller holds the lock.
void MainQueue::add(std::shared_ptr<Call> call) {
    waiting_.push_back(std::move(call));
    if (wake_) wake_();
}

void MainQueue::post(std::function<void()> work) {
    auto call = std::make_shared<Call>(Call{std::move(work)});
    const std::lock_guard lock(mutex_);
    if (!cancelled_) add(std::move(call));
}

bool MainQueue::sync(std::function<void()> work) {
    if (isMainThread()) {
        work();
        return true;
    }
    const auto call = std::make_shared<Call>(Call{std::move(work)});
    std::unique_lock lock(mutex_);
    if (cancelled_) return false;
    add(call);
    finished_.wait(lock, [&] { return call->state == Call::State::finished || call->state == Call::State::dropped; });
    return call->state == Call::State::finished;
}

void MainQueue::run() {
    std::unique_lock lock(mutex_);
    // The work may cancel the queue or run it again, so that fewer calls are left than were counted.
    for (auto count = waiting_.size(); count > 0 && !waiting_.empty(); --count) {
        const auto call = std::move(waiting_.front());
        waiting_.pop_front();
        call->state = Call::State::running;
        lock.unlock();
        call->work();
        // What the work holds is let go here, on the main thread, before anybody who waits goes on.
        call->work = nullptr;
        lock.lock();
        call->state = Call::State::finished;
        finished_.notify_all();
    }
}

void MainQueue::cancel() {
    // Let go after the lock: what dropped work holds may call the queue when it dies.
    std::deque<std::shared_ptr<Call>> dropped;
    const std::lock_guard lock(mutex_);
    cancelled_ = true;
    dropped.swap(waiting_);
    for (const auto& call : dropped) call->state = Call::State::dropped;
    finished_.notify_all();
}

void MainQueue::reopen() {
    const std::lock_guard lock(mutex_);
    cancelled_ = false;
}

}  // namespace zor
