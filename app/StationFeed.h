#pragma once

#include <functional>
#include <memory>
#include <string>

#include "host/station/Agent.h"
#include "host/station/StationDriver.h"

namespace zor {

class HistoryStore;

/// What a station sends, on its way to the agent and, where the station is live, into the history store. Main thread.
class StationFeed {
public:
    explicit StationFeed(std::shared_ptr<Agent> agent) : agent_(std::move(agent)) {}
    StationFeed(const StationFeed&) = delete;
    StationFeed& operator=(const StationFeed&) = delete;
    ~StationFeed() { stop(); }

    /// The driver's time, its past and its newest reading are the agent's from now on. Without a driver nothing else
    /// does anything.
    void connect(std::shared_ptr<StationDriver> driver);
    /// The newest reading and the history, at once and in this thread; nothing runs afterwards. For pictures.
    void readOnce();
    /// Readings arrive from now on. Those of a live station go to the store where there is one, under the agent's name
    /// of now, and a live station without an archive of its own has its past there.
    void start(const std::shared_ptr<HistoryStore>& store);
    void stop();

    /// What is wrong with the station now; empty when it works.
    const std::string& trouble() const { return trouble_; }
    void setTrouble(std::string sentence);
    void setTroubleObserver(std::function<void()> observer) { troubleObserver_ = std::move(observer); }

private:
    const std::shared_ptr<Agent> agent_;
    std::shared_ptr<StationDriver> driver_;
    std::string trouble_;
    std::function<void()> troubleObserver_;
};

}  // namespace zor
