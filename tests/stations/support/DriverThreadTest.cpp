#include "stations/support/DriverThread.h"

#include <atomic>

#include "tests/stations/MainLoop.h"

namespace zor {
namespace {

Reading at(Seconds time) {
    return {time, {}};
}

/// Runs until it is told to stop.
void rest(DriverThread& thread, const std::stop_token& stop) {
    while (thread.sleep(stop, 3600)) {
    }
}

TEST(DriverThread, HandsReadingsOverOnTheMainThreadInOrder) {
    test::MainLoop loop;
    std::vector<Seconds> times;
    bool onMain = true;
    DriverThread thread;
    thread.start({[&](Reading reading) {
                      onMain = onMain && MainQueue::shared().isMainThread();
                      times.push_back(reading.time);
                  },
                  {}},
                 [&](const std::stop_token& stop) {
                     for (int index = 0; index < 5; ++index) thread.deliver(at(index));
                     rest(thread, stop);
                 });
    EXPECT_TRUE(loop.runUntil([&] { return times.size() == 5; }));
    thread.stop();
    EXPECT_EQ(times, (std::vector<Seconds>{0, 1, 2, 3, 4}));
    EXPECT_TRUE(onMain);
}

TEST(DriverThread, NothingComesAfterStopEvenIfItWaitsInTheQueue) {
    test::MainLoop loop;
    int events = 0;
    std::atomic<bool> posted = false;
    DriverThread thread;
    thread.start({[&](Reading) { ++events; }, [&](const std::string&) { ++events; }}, [&](const std::stop_token& stop) {
        thread.deliver(at(1));
        thread.report("broken");
        posted = true;
        posted.notify_all();
        rest(thread, stop);
    });
    posted.wait(false);
    thread.stop();
    MainQueue::shared().run();
    EXPECT_EQ(events, 0);
}

TEST(DriverThread, TheSameTroubleIsToldOnceAndItsEndToo) {
    test::MainLoop loop;
    std::vector<std::string> troubles;
    DriverThread thread;
    thread.start({{}, [&](std::string trouble) { troubles.push_back(std::move(trouble)); }},
                 [&](const std::stop_token&) {
                     for (const char* trouble : {"", "gone", "gone", "", "", "locked"}) thread.report(trouble);
                 });
    EXPECT_TRUE(loop.runUntil([&] { return troubles.size() == 3; }));
    thread.stop();
    EXPECT_EQ(troubles, (std::vector<std::string>{"gone", "", "locked"}));
}

TEST(DriverThread, AnEventMayStopTheDriverAndDestroyIt) {
    test::MainLoop loop;
    int events = 0;
    auto thread = std::make_unique<DriverThread>();
    auto* raw = thread.get();
    thread->start({[&](Reading) {
                       ++events;
                       thread.reset();
                   },
                   {}},
                  [raw](const std::stop_token& stop) {
                      raw->deliver(at(1));
                      raw->deliver(at(2));
                      rest(*raw, stop);
                  });
    EXPECT_TRUE(loop.runUntil([&] { return !thread; }));
    MainQueue::shared().run();
    EXPECT_EQ(events, 1);
}

TEST(DriverThread, KnowsWhetherTheMainThreadKeepsUp) {
    test::MainLoop loop;
    bool arrived = false;
    std::atomic<int> step = 0;
    bool before = true;
    bool after = false;
    DriverThread thread;
    thread.start({[&](Reading) { arrived = true; }, {}}, [&](const std::stop_token&) {
        thread.deliver(at(1));
        before = thread.isDelivered();
        step = 1;
        step.notify_all();
        step.wait(1);
        after = thread.isDelivered();
    });
    step.wait(0);
    EXPECT_TRUE(loop.runUntil([&] { return arrived; }));
    step = 2;
    step.notify_all();
    thread.stop();
    EXPECT_FALSE(before);
    EXPECT_TRUE(after);
}

TEST(DriverThread, StartsAgain) {
    test::MainLoop loop;
    int first = 0;
    int second = 0;
    DriverThread thread;
    const auto work = [&](const std::stop_token& stop) {
        thread.deliver(at(1));
        rest(thread, stop);
    };
    thread.start({[&](Reading) { ++first; }, {}}, work);
    EXPECT_TRUE(loop.runUntil([&] { return first == 1; }));
    thread.start({[&](Reading) { ++second; }, {}}, work);
    EXPECT_TRUE(loop.runUntil([&] { return second == 1; }));
    EXPECT_EQ(first, 1);
}

}  // namespace
}  // namespace zor
