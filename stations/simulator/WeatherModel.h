#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "host/station/Reading.h"
#include "stations/simulator/Fronts.h"
#include "stations/simulator/Sun.h"
#include "stations/simulator/ValueNoise.h"

namespace zor {

/// The weather of one moment, in base units (°C, %, m/s, °, hPa, mm/h, W/m²).
struct Weather {
    double outdoorTemperature = 0;
    double outdoorHumidity = 0;
    double windSpeed = 0;
    double windGust = 0;
    double windDirection = 0;
    double rainRate = 0;
    double pressureRelative = 0;
    double pressureAbsolute = 0;
    double indoorTemperature = 0;
    double indoorHumidity = 0;
    double solarRadiation = 0;
    double uvIndex = 0;
};

/// A property of the station and where the weather has it.
struct WeatherField {
    std::string_view key;
    double Weather::*value;
};
std::span<const WeatherField> weatherFields();

/// Invented weather of a place in the west wind zone: seasons, day and night, fronts, gusts and showers. A pure
/// function of time, so that past and present agree and any moment can be asked in any order; the seed decides
/// everything.
class WeatherModel {
public:
    WeatherModel(std::int64_t seed, const Place& place);

    Weather at(Seconds time) const;
    /// mm/h; constant within each minute, which is what makes amounts exact.
    double rainRate(Seconds time) const;
    /// mm that fall in (from, to]; 0 for an empty span.
    double rain(Seconds from, Seconds to) const;
    /// mm since local midnight.
    double rainToday(Seconds time) const;
    /// Everything a station measures; the rain increment is what fell since `since`.
    Reading reading(Seconds time, Seconds since) const;

private:
    struct Sky;
    Sky sky(Seconds time) const;
    /// -1 in the depth of winter to 1 at the height of summer.
    double season(Seconds time) const;
    double temperature(Seconds time, const Sky& sky) const;
    double humidity(Seconds time, const Sky& sky, double warmthOfDay) const;
    /// 0 without a shower to 1 in the heaviest.
    double shower(Seconds time, const FrontalWeather& front) const;
    /// Degrees by which the time of day changes the temperature.
    double warmthOfDay(Seconds time, const Sky& sky) const;

    ValueNoise noise_;
    Place place_;
};

}  // namespace zor
