#include "app/pages/RenderGate.h"

#include <utility>

namespace zor {

RenderGate::Pass::Pass(Pass&& other) noexcept : gate_(std::exchange(other.gate_, nullptr)) {}

RenderGate::Pass::~Pass() {
    if (gate_) gate_->leave();
}

std::optional<RenderGate::Pass> RenderGate::enter() {
    std::unique_lock lock(mutex_);
    if (come_ - gone_ > roomToWait) return {};
    const auto mine = come_++;
    turn_.wait(lock, [&] { return mine < gone_ + atTheDoor; });
    return std::optional<Pass>(std::in_place, *this);
}

void RenderGate::leave() {
    const std::lock_guard lock(mutex_);
    ++gone_;
    turn_.notify_all();
}

}  // namespace zor
