#include "stations/weewx/WeewxHistory.h"

#include <algorithm>
#include <array>

#include "host/station/DerivedValues.h"
#include "host/station/PropertyKeys.h"
#include "stations/weewx/ReadArchive.h"

namespace zor {
namespace {

constexpr Seconds kHour = 3600;
constexpr Seconds kRateSpan = 15 * 60;
/// Three hours, how far off a sample may be, and a moment, as a window does not hold its start.
constexpr Seconds kTrendSpan = 3 * kHour + 20 * 60 + 1;

using Values = std::span<const std::optional<double>>;

/// A property that follows from others of the same row.
struct RowDerivation {
    std::string_view key;
    std::array<std::string_view, 3> ingredients;
    std::optional<double> (*derive)(Values);
};

constexpr auto kRowDerivations = std::to_array<RowDerivation>({
    {kOutdoorDewPoint,
     {kOutdoorTemperature, kOutdoorHumidity},
     [](Values v) { return v[0] && v[1] ? dewPoint(*v[0], *v[1]) : std::nullopt; }},
    {kIndoorDewPoint,
     {kIndoorTemperature, kIndoorHumidity},
     [](Values v) { return v[0] && v[1] ? dewPoint(*v[0], *v[1]) : std::nullopt; }},
    {kOutdoorHeatIndex,
     {kOutdoorTemperature, kOutdoorHumidity},
     [](Values v) { return v[0] && v[1] ? std::optional(heatIndex(*v[0], *v[1])) : std::nullopt; }},
    {kWindChill,
     {kOutdoorTemperature, kWindSpeed},
     [](Values v) { return v[0] && v[1] ? std::optional(windChill(*v[0], *v[1])) : std::nullopt; }},
    {kFeelsLike,
     {kOutdoorTemperature, kOutdoorHumidity, kWindSpeed},
     [](Values v) { return v[0] && v[1] && v[2] ? std::optional(feelsLike(*v[0], *v[1], *v[2])) : std::nullopt; }},
});

/// The samples of (time - span, time] that end at each position in turn.
class Window {
public:
    Window(std::span<const Sample> samples, Seconds span) : samples_(samples), span_(span) {}

    std::span<const Sample> endingAt(std::size_t position) {
        while (samples_[first_].time <= samples_[position].time - span_) ++first_;
        return samples_.subspan(first_, position + 1 - first_);
    }

private:
    std::span<const Sample> samples_;
    Seconds span_;
    std::size_t first_ = 0;
};

double total(std::span<const Sample> samples) {
    double sum = 0;
    for (const auto& sample : samples) sum += sample.value;
    return sum;
}

using Samples = Result<std::vector<Sample>>;

/// The archive's own values, and for rows without one what `derive` makes of the row's ingredients.
Samples loadRows(const WeewxArchive& archive, std::string_view key, Seconds from, Seconds to) {
    const auto derivation = std::ranges::find(kRowDerivations, key, &RowDerivation::key);
    std::vector<std::string_view> keys{key};
    const bool derives = derivation != kRowDerivations.end();
    if (derives) keys.insert(keys.end(), derivation->ingredients.begin(), derivation->ingredients.end());
    const auto rows = archive.rows(keys, from, to);
    if (!rows) return rows.error();
    std::vector<Sample> samples;
    for (const auto& row : *rows) {
        auto value = row.values.front();
        if (!value && derives) value = derivation->derive(Values(row.values).subspan(1));
        if (value) samples.push_back({row.time, *value});
    }
    return samples;
}

/// One sample for each of `source` from `from` on, made of those in the window that ends there.
template <typename Derive>
Samples loadWindows(const WeewxArchive& archive, std::string_view source, Seconds span, Seconds from, Seconds to,
                    Derive derive) {
    const auto past = loadRows(archive, source, from - span, to);
    if (!past) return past.error();
    std::vector<Sample> samples;
    Window window(*past, span);
    for (std::size_t position = 0; position < past->size(); ++position) {
        const Seconds time = (*past)[position].time;
        if (time < from) continue;
        const std::optional<double> value = derive(window.endingAt(position), time);
        if (value) samples.push_back({time, *value});
    }
    return samples;
}

Samples loadRainToday(const WeewxArchive& archive, Seconds from, Seconds to) {
    const auto increments = loadRows(archive, kRainIncrement, localMidnight(from), to);
    if (!increments) return increments.error();
    std::vector<Sample> samples;
    Seconds midnight = 0;
    double amount = 0;
    for (const auto& [time, value] : *increments) {
        const Seconds day = localMidnight(time);
        if (day != midnight) amount = 0;
        midnight = day;
        // What a row at midnight holds fell on the day before.
        if (time > day) amount += value;
        if (time >= from) samples.push_back({time, amount});
    }
    return samples;
}

/// The archive's rates; from the amounts where it has none at all in the span.
Samples loadRainRate(const WeewxArchive& archive, Seconds from, Seconds to) {
    auto rates = loadRows(archive, kRainRate, from, to);
    if (!rates || !rates->empty()) return rates;
    return loadWindows(archive, kRainIncrement, kRateSpan, from, to,
                       [](std::span<const Sample> increments, Seconds time) { return rainRate(increments, time); });
}

Samples loadFrom(const WeewxArchive& archive, std::string_view key, Seconds from, Seconds to) {
    if (key == kRainToday) return loadRainToday(archive, from, to);
    if (key == kRainRate) return loadRainRate(archive, from, to);
    if (key == kRainLastHour) {
        return loadWindows(archive, kRainIncrement, kHour, from, to,
                           [](std::span<const Sample> increments, Seconds) { return total(increments); });
    }
    if (key == kBarometricPressureTrend) {
        return loadWindows(archive, kBarometricPressureRelative, kTrendSpan, from, to,
                           [](std::span<const Sample> pressures, Seconds) { return pressureTrend(pressures); });
    }
    return loadRows(archive, key, from, to);
}

}  // namespace

std::vector<Sample> WeewxHistory::load(std::string_view key, Seconds from, Seconds to) {
    return readArchive(archive_, {}, [&](const WeewxArchive& archive) { return loadFrom(archive, key, from, to); })
        .valueOr({});
}

}  // namespace zor
