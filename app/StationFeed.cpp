#include "app/StationFeed.h"

#include <utility>

#include "stations/history/HistoryStore.h"

namespace zor {

void StationFeed::connect(std::shared_ptr<StationDriver> driver) {
    driver_ = std::move(driver);
    agent_->setClock([station = driver_] { return station->now(); });
    agent_->history()->setLoader(driver_->historyLoader());
    agent_->takeReading(driver_->currentReading());
}

void StationFeed::readOnce() {
    agent_->history()->setSynchronous(true);
    // Once more: what is derived from the past was not there yet.
    if (driver_) agent_->takeReading(driver_->currentReading());
}

void StationFeed::start(const std::shared_ptr<HistoryStore>& store) {
    if (!driver_) return;
    const auto keeper = driver_->isLive() ? store : nullptr;
    const std::string site = agent_->name();
    if (keeper && !driver_->historyLoader()) agent_->history()->setLoader(keeper->loader(site));
    driver_->start({.reading =
                        [keeper, site, station = std::weak_ptr(agent_)](Reading reading) {
                            if (keeper) keeper->append(site, reading);
                            if (const auto agent = station.lock()) agent->takeReading(std::move(reading));
                        },
                    .trouble = [this](std::string sentence) { setTrouble(std::move(sentence)); }});
}

void StationFeed::stop() {
    if (driver_) driver_->stop();
}

void StationFeed::setTrouble(std::string sentence) {
    trouble_ = std::move(sentence);
    if (troubleObserver_) troubleObserver_();
}

}  // namespace zor
