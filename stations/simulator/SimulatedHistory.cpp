#include "stations/simulator/SimulatedHistory.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <optional>

#include "host/station/DerivedValues.h"
#include "host/station/PropertyKeys.h"

namespace zor {
namespace {

constexpr Seconds kStep = 300;
constexpr Seconds kHour = 3600;
constexpr Seconds kReach = 10 * 365.25 * 86400;

/// The value of one property at any moment; moments are asked in ascending order.
using Series = std::function<std::optional<double>(Seconds)>;

Series derived(const WeatherModel& model, std::optional<double> (*value)(const Weather&)) {
    return [&model, value](Seconds time) { return value(model.at(time)); };
}

/// Goes on from the sample before while the day is the same, so that a long span costs each minute once.
Series rainToday(const WeatherModel& model) {
    return [&model, day = Seconds{-1}, last = Seconds{0}, amount = 0.0](Seconds time) mutable {
        const Seconds midnight = localMidnight(time);
        if (midnight != day) {
            day = last = midnight;
            amount = 0;
        }
        amount += model.rain(last, time);
        last = time;
        return std::optional(amount);
    };
}

Series seriesFor(const WeatherModel& model, std::string_view key) {
    const auto fields = weatherFields();
    const auto field = std::ranges::find(fields, key, &WeatherField::key);
    if (field != fields.end()) {
        return [&model, value = field->value](Seconds time) { return std::optional(model.at(time).*value); };
    }
    if (key == kRainToday) return rainToday(model);
    if (key == kRainIncrement) return [&model](Seconds time) { return std::optional(model.rain(time - kStep, time)); };
    if (key == kRainLastHour) return [&model](Seconds time) { return std::optional(model.rain(time - kHour, time)); };
    if (key == kBarometricPressureTrend) {
        return [&model](Seconds time) {
            return std::optional(model.at(time).pressureRelative - model.at(time - 3 * kHour).pressureRelative);
        };
    }
    if (key == kOutdoorDewPoint) {
        return derived(model, [](const Weather& w) { return dewPoint(w.outdoorTemperature, w.outdoorHumidity); });
    }
    if (key == kOutdoorHeatIndex) {
        return derived(
            model, [](const Weather& w) { return std::optional(heatIndex(w.outdoorTemperature, w.outdoorHumidity)); });
    }
    if (key == kWindChill) {
        return derived(model,
                       [](const Weather& w) { return std::optional(windChill(w.outdoorTemperature, w.windSpeed)); });
    }
    if (key == kFeelsLike) {
        return derived(model, [](const Weather& w) {
            return std::optional(feelsLike(w.outdoorTemperature, w.outdoorHumidity, w.windSpeed));
        });
    }
    return {};
}

}  // namespace

std::vector<Sample> SimulatedHistory::load(std::string_view key, Seconds from, Seconds to) {
    std::vector<Sample> samples;
    const Series series = seriesFor(model_, key);
    if (!series) return samples;
    const double first = std::ceil(std::max(from, clock_.start() - kReach) / kStep);
    const double last = std::floor(std::min(to, clock_.now()) / kStep);
    for (double step = first; step <= last; ++step) {
        const Seconds time = step * kStep;
        if (const auto value = series(time)) samples.push_back({time, *value});
    }
    return samples;
}

}  // namespace zor
