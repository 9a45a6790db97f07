#pragma once

#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <optional>

namespace zor {

/// Lets one picture be rendered at a time and eight more requests wait for it, in the order in which they came; whoever
/// comes after them is turned away. Any thread.
class RenderGate {
public:
    static constexpr std::uint64_t roomToWait = 8;

    /// The right to render, until it is destroyed.
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
    /// Numbers handed out, and the number whose turn it is: equal while nobody is here.
    std::uint64_t next_ = 0;
    std::uint64_t current_ = 0;
};

}  // namespace zor
