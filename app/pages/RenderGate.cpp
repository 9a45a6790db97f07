#include "app/pages/RenderGate.h"

#include <utility>

namespace zor {

RenderGate::Pass::Pass(Pass&& other) noexcept : gate_(std::exchange(other.gate_, nullptr)) {}

RenderGate::Pass::~Pass() {
    if (gate_) gate_->leave();
}

std::optional<RenderGate::Pass> RenderGate::enter() {
    std::unique_lock lock(mutex_);
    if (next_ - current_ > roomToWait) return {};
    const auto mine = next_++;
    turn_.wait(lock, [&] { return current_ == mine; });
    return std::optional<Pass>(std::in_place, *this);
}

void RenderGate::leave() {
    const std::lock_guard lock(mutex_);
    ++current_;
    turn_.notify_all();
}

}  // namespace zor
