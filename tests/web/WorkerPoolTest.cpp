#include "web/WorkerPool.h"

#include <gtest/gtest.h>

#include <atomic>

#include "host/foundation/MainQueue.h"

namespace zor {
namespace {

TEST(WorkerPoolTest, DoesAllWorkBeforeItEnds) {
    std::atomic<int> done = 0;
    {
        WorkerPool pool(4);
        for (int count = 0; count < 100; ++count) pool.add([&](bool) { ++done; });
    }
    EXPECT_EQ(done, 100);
}

TEST(WorkerPoolTest, EndsAlthoughWorkWaitsForTheMainThread) {
    MainQueue::shared().attach([] {});
    std::atomic<int> answered = 0;
    std::atomic<int> told = 0;
    WorkerPool pool(2);
    for (int count = 0; count < 20; ++count) {
        pool.add([&](bool isEnding) {
            if (isEnding) {
                ++told;
            } else if (MainQueue::shared().sync([] {})) {
                ++answered;
            }
        });
    }
    pool.stop();
    EXPECT_EQ(answered + told, 20);
    EXPECT_GT(told, 0);
}

TEST(WorkerPoolTest, WhatComesTooLateIsDoneByWhoeverBringsIt) {
    WorkerPool pool(1);
    pool.stop();
    bool wasEnding = false;
    std::thread::id thread;
    pool.add([&](bool isEnding) {
        wasEnding = isEnding;
        thread = std::this_thread::get_id();
    });
    EXPECT_TRUE(wasEnding);
    EXPECT_EQ(thread, std::this_thread::get_id());
}

}  // namespace
}  // namespace zor
