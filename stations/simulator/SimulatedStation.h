#pragma once

#include "host/station/StationDriver.h"
#include "stations/simulator/WeatherModel.h"
#include "stations/support/DriverThread.h"

namespace zor {

/// The station's own time: runs from a given start, `speed` times as fast as the wall clock.
class StationClock {
public:
    StationClock(Seconds start, double speed);
    Seconds start() const { return start_; }
    double speed() const { return speed_; }
    Seconds now() const;

private:
    Seconds start_;
    double speed_;
    Seconds realStart_;
};

/// A station without hardware: the weather of a model, live and with its whole past.
class SimulatedStation : public StationDriver {
public:
    struct Options {
        std::string name = "Demo Station";
        std::int64_t seed = 1;
        Place place;
        /// Seconds of station time between readings.
        Seconds interval = 2.5;
        StationClock clock{0, 1};
    };

    /// Settings, all optional: "name", "seed" (integer), "speed" (times real time, above 0), "interval" (seconds of
    /// station time, above 0), "latitude" (degrees, 50), "longitude" (degrees; that of the computer's time zone),
    /// "start" (station time at creation in seconds since 1970; now). The error names the setting at fault.
    static DriverResult create(const Value::Dictionary& settings);
    explicit SimulatedStation(Options options);
    ~SimulatedStation() override { stop(); }

    std::string stationName() const override { return options_.name; }
    Reading currentReading() override;
    Seconds now() const override { return options_.clock.now(); }
    /// A reading at each multiple of the interval; where the main thread cannot keep up, readings are left out and the
    /// next one holds the rain of all.
    void start(Events events) override;
    void stop() override { thread_.stop(); }
    std::shared_ptr<HistoryLoader> historyLoader() override;
    bool isLive() const override { return false; }

private:
    void run(const std::stop_token& stop);

    const Options options_;
    const WeatherModel model_;
    DriverThread thread_;
};

}  // namespace zor
