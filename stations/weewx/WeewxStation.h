#pragma once

#include <filesystem>
#include <mutex>
#include <set>

#include "host/station/StationDriver.h"
#include "stations/support/DriverThread.h"
#include "stations/support/RecordedClock.h"

namespace zor {

/// A station that weewx records, read from its SQLite archive while weewx writes it; the file is never changed. Its
/// time is that of the newest row, so that "today" is the last recorded day, until rows of the present come.
class WeewxStation : public StationDriver {
public:
    struct Options {
        std::string name;
        std::filesystem::path file;
        double pollSeconds = 5;
    };

    /// Settings: "file" (path of the archive), "name" (optional; else the file's name), "pollSeconds" (seconds between
    /// looks for new rows, 5). The error says which setting is wrong, or names the file and what is wrong with it.
    static DriverResult create(const Value::Dictionary& settings);
    ~WeewxStation() override { stop(); }

    std::string stationName() const override { return options_.name; }
    Reading currentReading() override;
    Seconds now() const override;
    /// Each row that comes after `currentReading()`, in order; it has the columns that ever held a value, and the rain
    /// of its day. Trouble: the archive is gone, locked for long or broken.
    void start(Events events) override;
    void stop() override { thread_.stop(); }
    std::shared_ptr<HistoryLoader> historyLoader() override;
    bool isLive() const override { return false; }

private:
    WeewxStation(Options options, std::set<std::string> used, Reading newest);
    void run(const std::stop_token& stop);
    void take(Reading reading);
    Reading withoutUnused(Reading reading);

    const Options options_;
    mutable std::mutex mutex_;
    std::set<std::string> used_;
    Reading newest_;
    RecordedClock clock_;
    DriverThread thread_;
};

}  // namespace zor
