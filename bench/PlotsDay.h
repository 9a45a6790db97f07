#pragma once
// A day of four properties, one sample a minute: what the plots of the benchmarks show.

#include <cmath>
#include <memory>

#include "host/station/Agent.h"
#include "host/station/PropertyKeys.h"

namespace zor::bench {

inline constexpr int samplesPerPlot = 1440;
/// The end of a day, so that the plots' day is full.
inline constexpr Seconds theTime = 1'767'225'599;

inline Seconds endOfTheDay() {
    return theTime;
}

struct Curve {
    const char* key;
    double level;
    double swing;
};
inline constexpr Curve curves[] = {
    {"outdoorTemperature", 12, 9}, {"outdoorHumidity", 65, 25}, {"windSpeed", 6, 5}, {"outdoorDewPoint", 6, 5}};

inline double valueAt(const Curve& curve, int sample, int run) {
    const double day = 2 * M_PI * sample / samplesPerPlot;
    return curve.level +
           curve.swing * (0.7 * std::sin(day + run) + 0.2 * std::sin(17 * day) + 0.1 * std::sin(211 * day));
}

/// A whole day of other values for each run.
inline void giveDay(Agent& agent, int run) {
    Reading last;
    for (int sample = 0; sample < samplesPerPlot; ++sample) {
        Reading reading{theTime - 60.0 * (samplesPerPlot - 1 - sample), {}};
        for (const auto& curve : curves) reading.measurements.push_back({curve.key, valueAt(curve, sample, run)});
        agent.history()->append(reading);
        last = std::move(reading);
    }
    agent.takeReading(std::move(last));
}

inline std::shared_ptr<Agent> agentOfThePlots() {
    auto agent = Agent::withName("Bench");
    for (const auto& curve : curves) {
        const auto naming = namingOfProperty(curve.key);
        agent->addProperty(curve.key, naming.displayName, naming.quantity);
    }
    return agent;
}

}  // namespace zor::bench
