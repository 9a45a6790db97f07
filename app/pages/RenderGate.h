#pragma once

#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <optional>

namespace zor {

/// Lets one picture be rendered and eight more requests wait, in the order in which they came; whoever comes after them
/// is turned away. Pictures are drawn on the main thread, one at a time: the first who waits does so at that thread's
/// door, so that it goes from one picture to the next without a pause, and the others do so here, so that between two
/// pictures everything else has its turn there. Any thread.
class RenderGate {
public:
    static constexpr std::uint64_t roomToWait = 8;
    /// Who draws, and who is next.
    static constexpr std::uint64_t atTheDoor = 2;

    /// The right to ask the main thread for a picture, until it is destroyed.
    class Pass {
    public:
        explicit Pass(RenderGate& gate) : gate_(&gate) {}
        Pass(Pass&& other) noexcept;
        Pass(const Pass&) = delete;
        Pass& operator=(const Pass&) = delete;
        Pass& operator=(Pass&&) = delete;
        ~Pass();

    private:
        RenderGate* gate_;
    };

    /// Waits for its turn; none, at once, where no room to wait is left.
    std::optional<Pass> enter();

private:
    void leave();

    std::mutex mutex_;
    std::condition_variable turn_;
    /// How many have come and how many of them have gone: equal while nobody is here.
    std::uint64_t come_ = 0;
    std::uint64_t gone_ = 0;
};

}  // namespace zor
