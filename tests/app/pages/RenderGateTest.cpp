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
    std::atomic<bool> mayGo = false;
    std::atomic<int> inside = 0;
    std::atomic<int> most = 0;
    std::atomic<int> served = 0;
    std::atomic<int> turnedAway = 0;
    std::vector<std::thread> others;
    for (int count = 0; count < 20; ++count) {
        others.emplace_back([&] {
            const auto pass = gate.enter();
            if (!pass) {
                ++turnedAway;
                return;
            }
            // Nobody is third.
            const int now = ++inside;
            for (int before = most; now > before && !most.compare_exchange_weak(before, now);) continue;
            while (!mayGo) std::this_thread::yield();
            --inside;
            ++served;
        });
    }
    while (turnedAway < 11) std::this_thread::yield();
    EXPECT_FALSE(gate.enter());
    EXPECT_EQ(served, 0);
    mayGo = true;
    for (auto& each : others) each.join();
    EXPECT_EQ(served, 9);
    EXPECT_EQ(turnedAway, 11);
    EXPECT_LE(most, 2);
    EXPECT_TRUE(gate.enter());
}

TEST(RenderGate, APassMovedAwayLeavesOnce) {
    RenderGate gate;
    const auto drawing = gate.enter();
    auto pass = gate.enter();
    ASSERT_TRUE(drawing && pass);
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
