#include "app/pages/RenderGate.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

namespace zor {
namespace {

TEST(RenderGate, LetsOneAfterTheOtherThrough) {
    RenderGate gate;
    for (int count = 0; count < 20; ++count) EXPECT_TRUE(gate.enter()) << count;
}

TEST(RenderGate, OneRendersEightWaitAndTheNextIsTurnedAway) {
    RenderGate gate;
    std::atomic<int> inside = 0;
    std::atomic<int> most = 0;
    std::atomic<int> served = 0;
    std::atomic<int> turnedAway = 0;
    std::vector<std::thread> others;
    {
        const auto first = gate.enter();
        ASSERT_TRUE(first);
        // While the first renders, exactly eight of twenty find room, whatever their order.
        for (int count = 0; count < 20; ++count) {
            others.emplace_back([&] {
                const auto pass = gate.enter();
                if (!pass) {
                    ++turnedAway;
                    return;
                }
                most = std::max(most.load(), ++inside);
                ++served;
                --inside;
            });
        }
        while (turnedAway < 12) std::this_thread::yield();
        EXPECT_EQ(served, 0);
        EXPECT_FALSE(gate.enter());
    }
    for (auto& each : others) each.join();
    EXPECT_EQ(served, 8);
    EXPECT_EQ(turnedAway, 12);
    EXPECT_EQ(most, 1);
    EXPECT_TRUE(gate.enter());
}

TEST(RenderGate, APassMovedAwayLeavesOnce) {
    RenderGate gate;
    auto pass = gate.enter();
    ASSERT_TRUE(pass);
    auto moved = std::make_optional<RenderGate::Pass>(std::move(*pass));
    pass.reset();
    std::atomic<bool> entered = false;
    std::thread other([&] {
        const auto next = gate.enter();
        entered = true;
    });
    EXPECT_FALSE(entered);
    moved.reset();
    other.join();
    EXPECT_TRUE(entered);
}

}  // namespace
}  // namespace zor
