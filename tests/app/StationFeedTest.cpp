#include "app/StationFeed.h"

#include <gmock/gmock.h>

#include "host/foundation/Log.h"
#include "stations/history/HistoryStore.h"
#include "tests/support/TemporaryFolder.h"

namespace zor {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr Seconds kStart = 1751364000;

Reading reading(Seconds time, double temperature) {
    return {time, {{"outdoorTemperature", temperature}}};
}

/// A station whose events the test sends.
class FakeStation : public StationDriver {
public:
    explicit FakeStation(bool isLive, std::shared_ptr<HistoryLoader> past = {})
        : isLive_(isLive), past_(std::move(past)) {}
    std::string stationName() const override { return "Roof"; }
    Reading currentReading() override { return newest; }
    Seconds now() const override { return kStart + 3600; }
    void start(Events given) override { events = std::move(given); }
    void stop() override { events = {}; }
    std::shared_ptr<HistoryLoader> historyLoader() override { return past_; }
    bool isLive() const override { return isLive_; }

    bool isRunning() const { return events.reading != nullptr; }
    void send(Seconds time, double temperature) const { events.reading(reading(time, temperature)); }

    Events events;
    Reading newest{kStart, {}};

private:
    const bool isLive_;
    const std::shared_ptr<HistoryLoader> past_;
};

/// An archive with one old value.
class FakePast : public HistoryLoader {
public:
    std::vector<Sample> load(std::string_view, Seconds from, Seconds to) override {
        return from <= kStart && kStart <= to ? std::vector<Sample>{{kStart, -3}} : std::vector<Sample>{};
    }
};

class StationFeedTest : public testing::Test {
protected:
    StationFeedTest() : sink_(setLogSink({})) { restart(); }
    ~StationFeedTest() override { setLogSink(sink_); }

    /// As when the program ends and is started again.
    void restart() {
        feed.reset();
        agent = Agent::withName("Roof");
        agent->history()->setSynchronous(true);
        feed = std::make_unique<StationFeed>(agent);
        store.reset();
        auto opened = HistoryStore::open(folder_ / "history.sqlite");
        ASSERT_TRUE(opened) << opened.error().message;
        store = *opened;
    }
    std::shared_ptr<FakeStation> connected(bool isLive, std::shared_ptr<HistoryLoader> past = {}) {
        auto station = std::make_shared<FakeStation>(isLive, std::move(past));
        feed->connect(station);
        return station;
    }
    std::vector<Sample> stored() const { return store->loader("Roof")->load("outdoorTemperature", 0, 4e9); }
    std::vector<Sample> plotted() const {
        return agent->history()->samples("outdoorTemperature", kStart, kStart + 3600);
    }
    std::optional<double> shown() const {
        const auto property = agent->properties().find("outdoorTemperature");
        return property ? property->value() : std::nullopt;
    }

    std::shared_ptr<Agent> agent;
    std::shared_ptr<HistoryStore> store;
    std::unique_ptr<StationFeed> feed;

private:
    const test::TemporaryFolder folder_;
    LogSink sink_;
};

TEST_F(StationFeedTest, ConnectingGivesTheStationsTimeAndItsNewestReading) {
    const auto station = std::make_shared<FakeStation>(true);
    station->newest = reading(kStart + 3590, 7);
    feed->connect(station);
    EXPECT_EQ(agent->now(), kStart + 3600);
    EXPECT_EQ(shown(), 7);
    EXPECT_FALSE(station->isRunning());
}

TEST_F(StationFeedTest, ReadingsOfALiveStationAreStoredAndComeBackAfterARestart) {
    const auto station = connected(true);
    feed->start(store);
    station->send(kStart + 60, 20.5);
    station->send(kStart + 120, 21.5);
    EXPECT_EQ(shown(), 21.5);

    restart();
    EXPECT_THAT(stored(), ElementsAre(Sample{kStart + 60, 20.5}, Sample{kStart + 120, 21.5}));
    const auto again = connected(true);
    feed->start(store);
    again->send(kStart + 180, 22.5);
    EXPECT_THAT(plotted(),
                ElementsAre(Sample{kStart + 60, 20.5}, Sample{kStart + 120, 21.5}, Sample{kStart + 180, 22.5}));
}

TEST_F(StationFeedTest, ReadingsAreStoredUnderTheStationsOwnName) {
    agent->setName("Shed");
    const auto station = connected(true);
    feed->start(store);
    station->send(kStart, 5);
    EXPECT_THAT(stored(), IsEmpty());
    EXPECT_THAT(store->loader("Shed")->load("outdoorTemperature", 0, 4e9), ElementsAre(Sample{kStart, 5}));
}

TEST_F(StationFeedTest, ReadingsOfAStationThatIsNotLiveAreShownAndNotStored) {
    const auto station = connected(false);
    feed->start(store);
    station->send(kStart + 60, 20.5);
    EXPECT_EQ(shown(), 20.5);
    EXPECT_THAT(plotted(), ElementsAre(Sample{kStart + 60, 20.5}));
    EXPECT_THAT(stored(), IsEmpty());

    // What another of that name stored is not its past.
    store->append("Roof", reading(kStart + 30, 9));
    restart();
    connected(false);
    feed->start(store);
    EXPECT_THAT(plotted(), IsEmpty());
}

TEST_F(StationFeedTest, AStationsOwnArchiveIsItsPastAlsoWhereItIsLive) {
    store->append("Roof", reading(kStart + 30, 9));
    for (const bool isLive : {false, true}) {
        restart();
        connected(isLive, std::make_shared<FakePast>());
        feed->start(store);
        EXPECT_THAT(plotted(), ElementsAre(Sample{kStart, -3}));
    }
}

TEST_F(StationFeedTest, WithoutAStoreALiveStationIsShown) {
    const auto station = connected(true);
    feed->start({});
    station->send(kStart + 60, 20.5);
    EXPECT_EQ(shown(), 20.5);
    EXPECT_THAT(plotted(), ElementsAre(Sample{kStart + 60, 20.5}));
}

TEST_F(StationFeedTest, TroubleReachesTheObserverAndNothingIsLostAroundIt) {
    std::vector<std::string> told;
    feed->setTroubleObserver([&] { told.push_back(feed->trouble()); });
    const auto station = connected(true);
    feed->start(store);
    EXPECT_EQ(feed->trouble(), "");
    station->send(kStart + 60, 1);
    station->events.trouble("the cable is out");
    EXPECT_EQ(feed->trouble(), "the cable is out");
    // One that was on its way.
    station->send(kStart + 120, 2);
    station->events.trouble("");
    EXPECT_EQ(feed->trouble(), "");
    station->send(kStart + 180, 3);

    EXPECT_THAT(told, ElementsAre("the cable is out", ""));
    const std::vector<Sample> all{{kStart + 60, 1}, {kStart + 120, 2}, {kStart + 180, 3}};
    EXPECT_EQ(stored(), all);
    EXPECT_EQ(plotted(), all);
    restart();
    EXPECT_EQ(stored(), all);
}

TEST_F(StationFeedTest, TheStationStopsWithTheFeed) {
    const auto station = connected(true);
    feed->start(store);
    ASSERT_TRUE(station->isRunning());
    feed->stop();
    EXPECT_FALSE(station->isRunning());
    feed->start(store);
    ASSERT_TRUE(station->isRunning());
    feed.reset();
    EXPECT_FALSE(station->isRunning());
}

TEST_F(StationFeedTest, AReadingThatComesAfterTheAgentIsStillStored) {
    const auto station = connected(true);
    feed->start(store);
    const auto late = station->events;
    feed.reset();
    agent.reset();
    late.reading(reading(kStart + 60, 1));
    EXPECT_THAT(stored(), ElementsAre(Sample{kStart + 60, 1}));
}

TEST_F(StationFeedTest, ForPicturesTheNewestReadingIsReadOnceAndNothingRuns) {
    const auto station = connected(true);
    station->newest = reading(kStart + 3590, 7);
    feed->readOnce();
    EXPECT_EQ(shown(), 7);
    EXPECT_FALSE(station->isRunning());
    EXPECT_THAT(stored(), IsEmpty());
}

TEST_F(StationFeedTest, WithoutADriverNothingHappensButTheTroubleIsTold) {
    int told = 0;
    feed->setTroubleObserver([&] { ++told; });
    feed->setTrouble("there is no such station");
    feed->readOnce();
    feed->start(store);
    feed->stop();
    EXPECT_EQ(told, 1);
    EXPECT_EQ(feed->trouble(), "there is no such station");
}

}  // namespace
}  // namespace zor
