#pragma once

#include "stations/simulator/SimulatedStation.h"

namespace zor {

/// The station's past, computed when it is asked for: a sample at every full five minutes from ten years before the
/// station's start to its present. Holds no state that changes; any thread may ask.
class SimulatedHistory : public HistoryLoader {
public:
    SimulatedHistory(const WeatherModel& model, const StationClock& clock) : model_(model), clock_(clock) {}

    /// What the station measures, and what derives from it: dew point, heat index, wind chill, feels like, rain of the
    /// last hour, pressure trend. Nothing for other keys.
    std::vector<Sample> load(std::string_view key, Seconds from, Seconds to) override;

private:
    const WeatherModel model_;
    const StationClock clock_;
};

}  // namespace zor
