#include <gmock/gmock.h>

#include <atomic>
#include <thread>

#include "host/foundation/MainQueue.h"

namespace zor {
namespace {

using testing::ElementsAre;

class MainQueueTest : public testing::Test {
protected:
    MainQueueTest() {
        queue.attach([this] {
            ++wakes;
            wakes.notify_all();
        });
    }
    /// Waits until work has been handed in that many times since the beginning.
    void awaitWakes(int count) {
        for (int seen = wakes; seen < count; seen = wakes) wakes.wait(seen);
    }

    MainQueue queue;
    std::atomic<int> wakes = 0;
    std::vector<int> order;
};

TEST_F(MainQueueTest, KnowsTheThreadThatAttached) {
    EXPECT_TRUE(queue.isMainThread());
    bool elsewhere = true;
    std::thread([&] { elsewhere = queue.isMainThread(); }).join();
    EXPECT_FALSE(elsewhere);
}

TEST_F(MainQueueTest, PostedWorkRunsLaterInOrder) {
    queue.post([&] { order.push_back(1); });
    queue.post([&] { order.push_back(2); });
    EXPECT_TRUE(order.empty());
    EXPECT_EQ(wakes, 2);
    queue.run();
    EXPECT_THAT(order, ElementsAre(1, 2));
    queue.run();
    EXPECT_THAT(order, ElementsAre(1, 2));
}

TEST_F(MainQueueTest, WorkPostedWhileRunningWaitsForTheNextRun) {
    queue.post([&] {
        order.push_back(1);
        queue.post([&] { order.push_back(2); });
    });
    queue.run();
    EXPECT_THAT(order, ElementsAre(1));
    EXPECT_EQ(wakes, 2);
    queue.run();
    EXPECT_THAT(order, ElementsAre(1, 2));
}

TEST_F(MainQueueTest, RunWithinWorkGoesOnWithTheRest) {
    queue.post([&] {
        order.push_back(1);
        queue.run();
        order.push_back(3);
    });
    queue.post([&] { order.push_back(2); });
    queue.run();
    EXPECT_THAT(order, ElementsAre(1, 2, 3));
}

TEST_F(MainQueueTest, SyncOnTheMainThreadRunsAtOnce) {
    EXPECT_TRUE(queue.sync([&] { order.push_back(1); }));
    EXPECT_THAT(order, ElementsAre(1));
    EXPECT_EQ(wakes, 0);
}

TEST_F(MainQueueTest, SyncFromAWorkerRunsOnTheMainThreadAndWaits) {
    std::thread::id ranOn;
    bool done = false;
    bool result = false;
    std::thread worker([&] {
        result = queue.sync([&] {
            ranOn = std::this_thread::get_id();
            done = true;
        });
        // The work's effects are there when the call returns.
        result = result && done;
    });
    awaitWakes(1);
    queue.run();
    worker.join();
    EXPECT_TRUE(result);
    EXPECT_EQ(ranOn, std::this_thread::get_id());
}

TEST_F(MainQueueTest, CancelEndsWaitingCallsWithoutRunningThem) {
    constexpr int callers = 4;
    std::atomic<int> ran = 0;
    std::atomic<int> refused = 0;
    std::vector<std::thread> workers;
    for (int number = 0; number < callers; ++number) {
        workers.emplace_back([&] {
            if (!queue.sync([&] { ++ran; })) ++refused;
        });
    }
    awaitWakes(callers);
    queue.cancel();
    for (auto& worker : workers) worker.join();
    queue.run();
    EXPECT_EQ(ran, 0);
    EXPECT_EQ(refused, callers);
}

TEST_F(MainQueueTest, CancelWithinWorkStillFinishesThatWork) {
    bool firstResult = false;
    bool secondResult = true;
    std::thread first([&] {
        firstResult = queue.sync([&] {
            queue.cancel();
            order.push_back(1);
        });
    });
    awaitWakes(1);
    std::thread second([&] { secondResult = queue.sync([&] { order.push_back(2); }); });
    awaitWakes(2);
    queue.run();
    first.join();
    second.join();
    EXPECT_TRUE(firstResult);
    EXPECT_FALSE(secondResult);
    EXPECT_THAT(order, ElementsAre(1));
}

TEST_F(MainQueueTest, CancelledQueueRefusesUntilReopened) {
    queue.post([&] { order.push_back(1); });
    queue.cancel();
    queue.post([&] { order.push_back(2); });
    bool accepted = true;
    std::thread([&] { accepted = queue.sync([&] { order.push_back(3); }); }).join();
    EXPECT_FALSE(accepted);
    queue.run();
    EXPECT_TRUE(order.empty());

    queue.reopen();
    queue.post([&] { order.push_back(4); });
    queue.run();
    EXPECT_THAT(order, ElementsAre(4));
}

TEST_F(MainQueueTest, WhatDroppedWorkHoldsMayCallTheQueue) {
    struct Caller {
        explicit Caller(MainQueue& called) : queue(called) {}
        ~Caller() {
            queue.post([] {});
        }
        MainQueue& queue;
    };
    queue.post([held = std::make_shared<Caller>(queue)] {});
    queue.cancel();
    queue.run();
}

TEST_F(MainQueueTest, ManyThreadsLoseNothing) {
    constexpr int callers = 4;
    constexpr int rounds = 200;
    int sum = 0;
    std::atomic<int> running = callers;
    std::vector<std::thread> workers;
    for (int number = 0; number < callers; ++number) {
        workers.emplace_back([&] {
            for (int round = 0; round < rounds; ++round) {
                queue.post([&] { ++sum; });
                queue.sync([&] { ++sum; });
            }
            --running;
        });
    }
    while (running > 0) {
        queue.run();
        std::this_thread::yield();
    }
    for (auto& worker : workers) worker.join();
    queue.run();
    EXPECT_EQ(sum, 2 * callers * rounds);
}

}  // namespace
}  // namespace zor
