#include "host/station/History.h"

#include <gmock/gmock.h>

#include <cmath>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <utility>

#include "host/foundation/MainQueue.h"

namespace zor {

void PrintTo(const Sample& sample, std::ostream* out) {
    *out << '(' << sample.time << ", " << sample.value << ')';
}

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

Seconds theTime = 10'000;
Seconds testClock() {
    return theTime;
}

struct Call {
    std::string key;
    TimeSpan span;
    bool operator==(const Call&) const = default;
};

void PrintTo(const Call& call, std::ostream* out) {
    *out << call.key << ' ' << call.span.from << ' ' << call.span.to;
}

/// An archive in memory, which notes what it is asked and on which thread.
class TestLoader : public HistoryLoader {
public:
    std::vector<Sample> load(std::string_view key, Seconds from, Seconds to) override {
        std::unique_lock lock(mutex);
        changed.wait(lock, [this] { return open; });
        calls.push_back({std::string(key), {from, to}});
        thread = std::this_thread::get_id();
        if (returnEverything) return archive;
        std::vector<Sample> found;
        for (const auto& sample : archive) {
            if (sample.time >= from && sample.time <= to) found.push_back(sample);
        }
        return found;
    }
    void setOpen(bool isOpen) {
        const std::lock_guard lock(mutex);
        open = isOpen;
        changed.notify_all();
    }
    std::vector<Call> takeCalls() {
        const std::lock_guard lock(mutex);
        return std::exchange(calls, {});
    }

    std::mutex mutex;
    std::condition_variable changed;
    bool open = true;
    bool returnEverything = false;
    std::vector<Sample> archive;
    std::vector<Call> calls;
    std::thread::id thread;
};

class HistoryTest : public testing::Test {
protected:
    HistoryTest() {
        theTime = 10'000;
        setClock(testClock);
        MainQueue::shared().attach([this] { wakes.release(); });
    }
    ~HistoryTest() override {
        history.reset();
        MainQueue::shared().run();
        MainQueue::shared().attach({});
        setClock(nullptr);
    }

    /// Runs the main queue when there is work for it, so often.
    void runMainQueue(int times) {
        for (int count = 0; count < times; ++count) {
            wakes.acquire();
            MainQueue::shared().run();
        }
    }
    void synchronousWithLoader() {
        history->setSynchronous(true);
        history->setLoader(loader);
    }

    /// Counts what was posted.
    struct Wakes {
        std::mutex mutex;
        std::condition_variable changed;
        int count = 0;
        void release() {
            const std::lock_guard lock(mutex);
            ++count;
            changed.notify_one();
        }
        void acquire() {
            std::unique_lock lock(mutex);
            changed.wait(lock, [this] { return count > 0; });
            --count;
        }
    } wakes;
    std::shared_ptr<TestLoader> loader = std::make_shared<TestLoader>();
    std::shared_ptr<History> history = std::make_shared<History>();
};

TEST_F(HistoryTest, KeepsLiveReadings) {
    history->append({100, {{"a", 1.0}, {"b", 5.0}}});
    history->append({200, {{"a", 2.0}, {"b", {}}}});
    history->append({300, {{"a", 3.0}, {"c", std::nan("")}}});
    EXPECT_THAT(history->samples("a", 0, 1000), ElementsAre(Sample{100, 1}, Sample{200, 2}, Sample{300, 3}));
    EXPECT_THAT(history->samples("b", 0, 1000), ElementsAre(Sample{100, 5}));
    EXPECT_THAT(history->samples("c", 0, 1000), IsEmpty());
    EXPECT_THAT(history->samples("d", 0, 1000), IsEmpty());
}

TEST_F(HistoryTest, SpansIncludeTheirEnds) {
    for (const double time : {100, 200, 300, 400}) history->append({time, {{"a", time}}});
    EXPECT_THAT(history->samples("a", 200, 300), ElementsAre(Sample{200, 200}, Sample{300, 300}));
    EXPECT_THAT(history->samples("a", 201, 299), IsEmpty());
    EXPECT_THAT(history->samples("a", 400, 400), ElementsAre(Sample{400, 400}));
    EXPECT_THAT(history->samples("a", 300, 200), IsEmpty());
    EXPECT_THAT(history->samples("a", std::nan(""), 200), IsEmpty());
}

TEST_F(HistoryTest, LateAndRepeatedReadingsFindTheirPlace) {
    history->append({300, {{"a", 3.0}}});
    history->append({100, {{"a", 1.0}}});
    history->append({200, {{"a", 2.0}}});
    history->append({300, {{"a", 3.5}}});
    history->append({100, {{"a", 1.5}}});
    history->append({std::nan(""), {{"a", 9.0}}});
    EXPECT_THAT(history->samples("a", 0, 1000), ElementsAre(Sample{100, 1.5}, Sample{200, 2}, Sample{300, 3.5}));
}

TEST_F(HistoryTest, SynchronousLoadingAnswersAtOnceAndAsksOnce) {
    loader->archive = {{1000, 1}, {2000, 2}, {3000, 3}};
    synchronousWithLoader();
    EXPECT_THAT(history->samples("a", 1500, 2500), ElementsAre(Sample{2000, 2}));
    EXPECT_EQ(loader->thread, std::this_thread::get_id());
    EXPECT_THAT(loader->takeCalls(), ElementsAre(Call{"a", {1500, 2500}}));
    EXPECT_THAT(history->samples("a", 1600, 2400), ElementsAre(Sample{2000, 2}));
    EXPECT_THAT(loader->takeCalls(), IsEmpty());
    EXPECT_THAT(history->samples("a", 0, 4000), ElementsAre(Sample{1000, 1}, Sample{2000, 2}, Sample{3000, 3}));
    EXPECT_THAT(loader->takeCalls(), ElementsAre(Call{"a", {0, 1500}}, Call{"a", {2500, 4000}}));
    history->samples("b", 0, 4000);
    EXPECT_THAT(loader->takeCalls(), ElementsAre(Call{"b", {0, 4000}}));
}

TEST_F(HistoryTest, TheFutureIsNotAskedFor) {
    synchronousWithLoader();
    history->samples("a", 9000, 20'000);
    EXPECT_THAT(loader->takeCalls(), ElementsAre(Call{"a", {9000, 10'000}}));
    history->samples("a", 15'000, 20'000);
    EXPECT_THAT(loader->takeCalls(), IsEmpty());
    theTime = 12'000;
    loader->archive = {{11'000, 1}};
    EXPECT_THAT(history->samples("a", 9000, 20'000), ElementsAre(Sample{11'000, 1}));
    EXPECT_THAT(loader->takeCalls(), ElementsAre(Call{"a", {10'000, 12'000}}));
}

TEST_F(HistoryTest, ThePresentIsTheStations) {
    const auto time = std::make_shared<StationTime>();
    history = std::make_shared<History>(time);
    synchronousWithLoader();
    time->setClock([] { return Seconds{5000}; });
    history->samples("a", 4000, 20'000);
    EXPECT_THAT(loader->takeCalls(), ElementsAre(Call{"a", {4000, 5000}}));
    time->setClock({});
    history->samples("a", 4000, 20'000);
    EXPECT_THAT(loader->takeCalls(), ElementsAre(Call{"a", {5000, 10'000}}));
}

TEST_F(HistoryTest, LiveReadingsAccountForTheMinutesAfterThem) {
    synchronousWithLoader();
    history->append({9000, {{"a", 1.0}}});
    history->append({9500, {{"a", 2.0}}});
    theTime = 10'050;
    history->samples("a", 9000, 10'050);
    EXPECT_THAT(loader->takeCalls(), IsEmpty());
    // A silence of more than ten minutes, such as a computer asleep.
    theTime = 12'000;
    history->append({12'000, {{"a", 3.0}}});
    loader->archive = {{11'000, 2.5}};
    EXPECT_THAT(history->samples("a", 9000, 12'000),
                ElementsAre(Sample{9000, 1}, Sample{9500, 2}, Sample{11'000, 2.5}, Sample{12'000, 3}));
    EXPECT_THAT(loader->takeCalls(), ElementsAre(Call{"a", {10'100, 12'000}}));
}

TEST_F(HistoryTest, LiveAndLoadedSamplesMergeWithoutDuplicates) {
    loader->archive = {{1000, 1}, {2000, 2}, {3000, 3}};
    history->append({2000, {{"a", 2.25}}});
    synchronousWithLoader();
    EXPECT_THAT(history->samples("a", 0, 4000), ElementsAre(Sample{1000, 1}, Sample{2000, 2.25}, Sample{3000, 3}));
}

TEST_F(HistoryTest, ALoaderMayGiveAnything) {
    loader->returnEverything = true;
    loader->archive = {{2000, 2},   {1000, 1}, {50'000, 5},      {1500, std::nan("")},
                       {1000, 1.5}, {-5, 0},   {std::nan(""), 1}};
    synchronousWithLoader();
    EXPECT_THAT(history->samples("a", 0, 4000), ElementsAre(Sample{1000, 1}, Sample{2000, 2}));
    EXPECT_THAT(history->samples("a", -100, 100'000), ElementsAre(Sample{-5, 0}, Sample{1000, 1}, Sample{2000, 2}));
}

TEST_F(HistoryTest, ClearForgetsEverything) {
    loader->archive = {{1000, 1}};
    synchronousWithLoader();
    history->append({2000, {{"a", 2.0}}});
    history->samples("a", 0, 4000);
    loader->takeCalls();
    loader->archive = {{1000, 7}};
    history->clear();
    EXPECT_THAT(history->samples("a", 0, 4000), ElementsAre(Sample{1000, 7}));
    EXPECT_THAT(loader->takeCalls(), ElementsAre(Call{"a", {0, 4000}}));
}

TEST_F(HistoryTest, AnotherLoaderIsAskedForEverything) {
    loader->archive = {{1000, 1}};
    synchronousWithLoader();
    history->samples("a", 0, 4000);
    const auto other = std::make_shared<TestLoader>();
    other->archive = {{3000, 3}};
    history->setLoader(other);
    EXPECT_THAT(history->samples("a", 0, 4000), ElementsAre(Sample{1000, 1}, Sample{3000, 3}));
    history->setLoader({});
    EXPECT_THAT(history->samples("a", 0, 4000), ElementsAre(Sample{1000, 1}, Sample{3000, 3}));
}

TEST_F(HistoryTest, FetchesInTheBackgroundAndAnnouncesWhatHasCome) {
    loader->archive = {{1000, 1}, {2000, 2}};
    history->setLoader(loader);
    int announced = 0;
    history->setObserver([&] {
        ++announced;
        EXPECT_TRUE(MainQueue::shared().isMainThread());
    });
    history->append({3000, {{"a", 3.0}}});
    EXPECT_THAT(history->samples("a", 0, 3500), ElementsAre(Sample{3000, 3}));
    EXPECT_EQ(announced, 0);
    runMainQueue(1);
    EXPECT_EQ(announced, 1);
    EXPECT_NE(loader->thread, std::this_thread::get_id());
    EXPECT_THAT(history->samples("a", 0, 3500), ElementsAre(Sample{1000, 1}, Sample{2000, 2}, Sample{3000, 3}));
    EXPECT_THAT(loader->takeCalls(), ElementsAre(Call{"a", {0, 3000}}));
}

TEST_F(HistoryTest, WhatIsOnItsWayIsNotAskedForAgain) {
    loader->archive = {{1000, 1}, {5000, 5}};
    loader->setOpen(false);
    history->setLoader(loader);
    history->samples("a", 0, 4000);
    history->samples("a", 0, 4000);
    history->samples("a", 0, 6000);
    loader->setOpen(true);
    runMainQueue(2);
    EXPECT_THAT(history->samples("a", 0, 6000), ElementsAre(Sample{1000, 1}, Sample{5000, 5}));
    EXPECT_THAT(loader->takeCalls(), ElementsAre(Call{"a", {0, 4000}}, Call{"a", {4000, 6000}}));
}

TEST_F(HistoryTest, TellsWhetherMoreThanTheLatestMomentsIsOnItsWay) {
    loader->archive = {{1000, 1}, {9500, 5}};
    history->setLoader(loader);
    EXPECT_FALSE(history->isFetching());
    history->samples("a", 0, 9000);
    EXPECT_TRUE(history->isFetching());
    runMainQueue(1);
    EXPECT_FALSE(history->isFetching());
    EXPECT_EQ(history->newsCount(), 1U);
    // Ten minutes that have passed since: whoever shows the past does not wait for these.
    history->samples("a", 0, 9600);
    EXPECT_FALSE(history->isFetching());
    runMainQueue(1);
    EXPECT_EQ(history->newsCount(), 1U);
    EXPECT_THAT(history->samples("a", 0, 9600), ElementsAre(Sample{1000, 1}, Sample{9500, 5}));
    // A dropped request has been answered, too.
    history->samples("c", 0, 9000);
    history->clear();
    runMainQueue(1);
    EXPECT_FALSE(history->isFetching());
    EXPECT_EQ(history->newsCount(), 1U);
}

TEST_F(HistoryTest, NothingNewIsNotAnnounced) {
    history->setLoader(loader);
    int announced = 0;
    history->setObserver([&] { ++announced; });
    history->samples("a", 0, 4000);
    runMainQueue(1);
    EXPECT_EQ(announced, 0);
}

TEST_F(HistoryTest, SynchronousLoadingDoesNotWaitForWhatIsOnItsWay) {
    loader->archive = {{1000, 1}};
    loader->setOpen(false);
    history->setLoader(loader);
    history->samples("a", 0, 4000);
    history->setSynchronous(true);
    loader->setOpen(true);
    EXPECT_THAT(history->samples("a", 0, 4000), ElementsAre(Sample{1000, 1}));
    runMainQueue(1);
    EXPECT_THAT(history->samples("a", 0, 4000), ElementsAre(Sample{1000, 1}));
}

TEST_F(HistoryTest, WhatComesAfterClearingIsDropped) {
    loader->archive = {{1000, 1}};
    history->setLoader(loader);
    int announced = 0;
    history->setObserver([&] { ++announced; });
    history->samples("a", 0, 4000);
    history->clear();
    history->setLoader({});
    runMainQueue(1);
    EXPECT_EQ(announced, 0);
    EXPECT_THAT(history->samples("a", 0, 4000), IsEmpty());
}

TEST_F(HistoryTest, MayEndWhileSamplesAreOnTheirWay) {
    loader->archive = {{1000, 1}};
    history->setLoader(loader);
    history->setObserver([] { FAIL(); });
    history->samples("a", 0, 4000);
    history->samples("b", 0, 4000);
    history.reset();
    MainQueue::shared().run();
    EXPECT_EQ(loader.use_count(), 1);
}

TEST_F(HistoryTest, MayEndInItsObserver) {
    loader->archive = {{1000, 1}};
    history->setLoader(loader);
    history->setObserver([this] { history.reset(); });
    history->samples("a", 0, 4000);
    runMainQueue(1);
    EXPECT_EQ(history, nullptr);
}

}  // namespace
}  // namespace zor
