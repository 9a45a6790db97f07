#include "host/station/DerivedValues.h"

#include <algorithm>
#include <cmath>
#include <ctime>
#include <numeric>

#include "host/station/PropertyKeys.h"

namespace zor {

namespace {

constexpr Seconds hour = 3600;
constexpr Seconds trendSpan = 3 * hour;
constexpr Seconds trendTolerance = 20 * 60;
constexpr Seconds rainRateSpan = 15 * 60;

constexpr double coldBelowCelsius = 10;
constexpr double hotFromFahrenheit = 80;

double fahrenheit(double celsius) {
    return celsius * 1.8 + 32;
}

double celsiusOf(double degreesFahrenheit) {
    return (degreesFahrenheit - 32) / 1.8;
}

/// Rothfusz regression with its adjustments for very dry and very damp air, in °F and %.
double rothfusz(double t, double r) {
    double index = -42.379 + 2.04901523 * t + 10.14333127 * r - 0.22475541 * t * r - 6.83783e-3 * t * t -
                   5.481717e-2 * r * r + 1.22874e-3 * t * t * r + 8.5282e-4 * t * r * r - 1.99e-6 * t * t * r * r;
    if (r < 13 && t >= 80 && t <= 112) index -= (13 - r) / 4 * std::sqrt((17 - std::abs(t - 95)) / 17);
    if (r > 85 && t >= 80 && t <= 87) index += (r - 85) / 10 * ((87 - t) / 5);
    return index;
}

/// The total of the increments in (from, to]: an increment fell before the moment of its reading.
double total(std::span<const Sample> increments, Seconds from, Seconds to) {
    const auto first = std::ranges::upper_bound(increments, from, {}, &Sample::time);
    const auto last = std::ranges::upper_bound(increments, to, {}, &Sample::time);
    if (first >= last) return 0;
    return std::accumulate(first, last, 0.0, [](double sum, const Sample& sample) { return sum + sample.value; });
}

std::optional<double> measured(const Reading& reading, std::string_view key) {
    const auto found = std::ranges::find(reading.measurements, key, &Measurement::key);
    return found == reading.measurements.end() ? std::nullopt : found->value;
}

/// What the station measures itself stays.
void supply(Reading& reading, std::string_view key, std::optional<double> value) {
    if (!value) return;
    const auto found = std::ranges::find(reading.measurements, key, &Measurement::key);
    if (found == reading.measurements.end()) {
        reading.measurements.push_back({std::string(key), value});
    } else if (!found->value) {
        found->value = value;
    }
}

}  // namespace

std::optional<double> dewPoint(double celsius, double humidity) {
    if (!(humidity > 0)) return {};
    constexpr double a = 17.625;
    constexpr double b = 243.04;
    const double gamma = std::log(humidity / 100) + a * celsius / (b + celsius);
    return b * gamma / (a - gamma);
}

double heatIndex(double celsius, double humidity) {
    const double t = fahrenheit(celsius);
    const double steadman = (t + 61 + (t - 68) * 1.2 + humidity * 0.094) / 2;
    const double simple = (steadman + t) / 2;
    return celsiusOf(simple < hotFromFahrenheit ? simple : rothfusz(t, humidity));
}

double windChill(double celsius, double metresPerSecond) {
    const double kilometresPerHour = metresPerSecond * 3.6;
    if (celsius > coldBelowCelsius || kilometresPerHour < 4.8) return celsius;
    const double wind = std::pow(kilometresPerHour, 0.16);
    return 13.12 + 0.6215 * celsius - 11.37 * wind + 0.3965 * celsius * wind;
}

double feelsLike(double celsius, double humidity, double metresPerSecond) {
    if (celsius <= coldBelowCelsius) return windChill(celsius, metresPerSecond);
    return fahrenheit(celsius) >= hotFromFahrenheit ? heatIndex(celsius, humidity) : celsius;
}

std::optional<double> pressureTrend(std::span<const Sample> pressures) {
    if (pressures.empty()) return {};
    const auto& last = pressures.back();
    const Seconds wanted = last.time - trendSpan;
    const auto later = std::ranges::lower_bound(pressures, wanted, {}, &Sample::time);
    auto nearest = later;
    if (later != pressures.begin() && wanted - std::prev(later)->time < later->time - wanted)
        nearest = std::prev(later);
    if (std::abs(nearest->time - wanted) > trendTolerance) return {};
    return last.value - nearest->value;
}

double rainRate(std::span<const Sample> increments, Seconds end) {
    return total(increments, end - rainRateSpan, end) * (hour / rainRateSpan);
}

Seconds localMidnight(Seconds time) {
    const auto moment = static_cast<std::time_t>(std::floor(time));
    std::tm day = {};
    if (!localtime_r(&moment, &day)) return 0;
    day.tm_hour = day.tm_min = day.tm_sec = 0;
    day.tm_isdst = -1;
    return static_cast<Seconds>(std::mktime(&day));
}

void DerivedValues::complete(Reading& reading) const {
    completeTemperatures(reading);
    completeRain(reading);
    completePressure(reading);
}

/// The past from `from` on, then the reading's own value.
std::vector<Sample> DerivedValues::samplesUpTo(const Reading& reading, std::string_view key, Seconds from) const {
    auto samples = past_->samples(key, from, reading.time);
    if (const auto value = measured(reading, key)) {
        if (!samples.empty() && samples.back().time == reading.time) samples.pop_back();
        samples.push_back({reading.time, *value});
    }
    return samples;
}

void DerivedValues::completeTemperatures(Reading& reading) const {
    const auto indoor = measured(reading, kIndoorTemperature);
    const auto indoorHumidity = measured(reading, kIndoorHumidity);
    if (indoor && indoorHumidity) supply(reading, kIndoorDewPoint, dewPoint(*indoor, *indoorHumidity));

    const auto outdoor = measured(reading, kOutdoorTemperature);
    const auto temperature = outdoor ? outdoor : measured(reading, kTemperature);
    if (!temperature) return;
    const auto humidity = measured(reading, outdoor ? kOutdoorHumidity : kHumidity);
    const auto wind = measured(reading, kWindSpeed);
    if (humidity) {
        supply(reading, outdoor ? kOutdoorDewPoint : kDewPoint, dewPoint(*temperature, *humidity));
        supply(reading, outdoor ? kOutdoorHeatIndex : kHeatIndex, heatIndex(*temperature, *humidity));
    }
    if (wind) supply(reading, kWindChill, windChill(*temperature, *wind));
    if (wind && humidity) supply(reading, kFeelsLike, feelsLike(*temperature, *humidity, *wind));
}

void DerivedValues::completeRain(Reading& reading) const {
    const Seconds midnight = midnight_(reading.time);
    const auto increments = samplesUpTo(reading, kRainIncrement, std::min(midnight, reading.time - hour));
    if (increments.empty()) return;
    supply(reading, kRainRate, rainRate(increments, reading.time));
    supply(reading, kRainToday, total(increments, midnight, reading.time));
    supply(reading, kRainLastHour, total(increments, reading.time - hour, reading.time));
}

void DerivedValues::completePressure(Reading& reading) const {
    const auto key =
        measured(reading, kBarometricPressureRelative) ? kBarometricPressureRelative : kBarometricPressureAbsolute;
    if (!measured(reading, key)) return;
    supply(reading, kBarometricPressureTrend,
           pressureTrend(samplesUpTo(reading, key, reading.time - trendSpan - trendTolerance)));
}

}  // namespace zor
