#include "stations/simulator/WeatherModel.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "host/station/DerivedValues.h"
#include "host/station/PropertyKeys.h"

namespace zor {
namespace {

constexpr double kTurn = 2 * std::numbers::pi;
constexpr Seconds kMinute = 60;
constexpr Seconds kHour = 3600;
constexpr Seconds kDay = 86400;
constexpr double kStationAltitude = 120;

/// One random function of time each.
enum Channel : std::uint32_t {
    kTemperatureDays,
    kTemperatureHours,
    kTemperatureMinutes,
    kPressureDays,
    kPressureHours,
    kHumidityHours,
    kHumidityMinutes,
    kCloudHours,
    kCloudMinutes,
    kWindHours,
    kWindTurbulence,
    kGustMinutes,
    kDirectionDays,
    kDirectionMinutes,
    kRainBand,
    kShower,
    kConvectionDays,
    kIndoorWarmth,
    kIndoorMoisture,
};

constexpr std::array kFields = {
    WeatherField{kOutdoorTemperature, &Weather::outdoorTemperature},
    WeatherField{kOutdoorHumidity, &Weather::outdoorHumidity},
    WeatherField{kWindSpeed, &Weather::windSpeed},
    WeatherField{kWindGust, &Weather::windGust},
    WeatherField{kWindDirection, &Weather::windDirection},
    WeatherField{kRainRate, &Weather::rainRate},
    WeatherField{kBarometricPressureRelative, &Weather::pressureRelative},
    WeatherField{kBarometricPressureAbsolute, &Weather::pressureAbsolute},
    WeatherField{kIndoorTemperature, &Weather::indoorTemperature},
    WeatherField{kIndoorHumidity, &Weather::indoorHumidity},
    WeatherField{kSolarRadiation, &Weather::solarRadiation},
    WeatherField{kUVIndex, &Weather::uvIndex},
};

/// Rain below this cannot be measured.
constexpr double kLeastRate = 0.2;

double sine(double degrees) {
    return std::sin(degrees * std::numbers::pi / 180);
}

}  // namespace

/// What lies above the station.
struct WeatherModel::Sky {
    FrontalWeather front;
    /// Sine of the sun's elevation.
    double sunHeight = 0;
    /// Covered share of the sky, 0 to 1: of the hour, and of the moment.
    double overcast = 0;
    double cloud = 0;
    double shower = 0;
};

std::span<const WeatherField> weatherFields() {
    return kFields;
}

WeatherModel::WeatherModel(std::int64_t seed, const Place& place)
    : noise_(static_cast<std::uint64_t>(seed)), place_(place) {}

double WeatherModel::season(Seconds time) const {
    // The air is warmest a month after the sun stands highest, south of the equator half a year later.
    const double north = std::cos(kTurn * (yearFraction(time) - 0.55));
    return place_.latitude < 0 ? -north : north;
}

double WeatherModel::shower(Seconds time, const FrontalWeather& front) const {
    const double afternoon = ease(std::cos(kTurn * (solarHour(time, place_.longitude) - 16) / 24), 0.2, 1);
    const double unstable = ease(noise_.smooth(kConvectionDays, time, 2 * kDay), 0.1, 0.8);
    const double convection = std::max(0.0, season(time)) * afternoon * unstable;
    const double readiness = std::min(1.0, front.showers + convection);
    return readiness * ease(noise_.smooth(kShower, time, 35 * kMinute), 0.45, 1);
}

WeatherModel::Sky WeatherModel::sky(Seconds time) const {
    Sky sky;
    sky.front = frontalWeather(noise_, time);
    sky.sunHeight = sunHeight(time, place_);
    sky.shower = shower(time, sky.front);
    sky.overcast =
        std::clamp(0.42 + 0.5 * noise_.smooth(kCloudHours, time, 16 * kHour) + 0.7 * sky.front.overcast, 0.0, 1.0);
    // Single clouds pass where the sky is neither clear nor closed.
    const double broken = 4 * sky.overcast * (1 - sky.overcast);
    sky.cloud = std::clamp(sky.overcast + 0.5 * broken * noise_.smooth(kCloudMinutes, time, 9 * kMinute) + sky.shower,
                           0.0, 1.0);
    return sky;
}

double WeatherModel::warmthOfDay(Seconds time, const Sky& sky) const {
    // Warmest three hours after noon; the higher the sun and the clearer the sky, the warmer the day and the colder the
    // night.
    const double swing = 1.8 + 5.2 * std::max(0.0, noonSunHeight(time, place_.latitude));
    return swing * (1 - 0.55 * sky.overcast) * std::cos(kTurn * (solarHour(time, place_.longitude) - 15) / 24);
}

double WeatherModel::temperature(Seconds time, const Sky& sky) const {
    // Annual mean and swing near sea level, fitted to what climate tables give for mid-latitude lowlands.
    const double pole = std::abs(sine(place_.latitude));
    const double climate = 27 - 38 * pole * pole * pole + 12.5 * pole * season(time);
    return climate + warmthOfDay(time, sky) + 3.5 * sky.front.warmth - 4.5 * sky.front.cold - 1.5 * sky.shower +
           2.5 * noise_.smooth(kTemperatureDays, time, 1.5 * kDay) +
           0.5 * noise_.smooth(kTemperatureHours, time, 2 * kHour) +
           0.1 * noise_.smooth(kTemperatureMinutes, time, 3 * kMinute);
}

double WeatherModel::humidity(Seconds time, const Sky& sky, double warmth) const {
    const double air = 72 - 3.2 * warmth - 8 * season(time) + 10 * sky.front.warmth - 6 * sky.front.cold +
                       9 * noise_.smooth(kHumidityHours, time, 14 * kHour) +
                       noise_.smooth(kHumidityMinutes, time, 8 * kMinute);
    const double wetness = std::min(1.0, sky.front.band + sky.shower);
    return std::clamp(std::lerp(air, 96.0, 0.85 * wetness), 15.0, 100.0);
}

Weather WeatherModel::at(Seconds time) const {
    const Sky sky = this->sky(time);
    Weather weather;

    weather.outdoorTemperature = temperature(time, sky);
    weather.outdoorHumidity = humidity(time, sky, warmthOfDay(time, sky));
    weather.rainRate = rainRate(time);

    // The pressure's own double wave of the day has its crests at ten o'clock.
    const double tide = 0.6 * std::cos(2 * kTurn * (solarHour(time, place_.longitude) - 10) / 24);
    weather.pressureRelative = 1017 + tide + 9 * noise_.smooth(kPressureDays, time, 5 * kDay) +
                               2 * noise_.smooth(kPressureHours, time, 18 * kHour) - 20 * sky.front.trough;
    // Standard atmosphere.
    weather.pressureAbsolute = weather.pressureRelative * std::pow(1 - 0.0065 * kStationAltitude / 288.15, 5.2559);

    const double wind = std::max(0.0, 2.2 + 2 * noise_.smooth(kWindHours, time, 9 * kHour) + 6.5 * sky.front.wind +
                                          1.5 * std::max(0.0, sky.sunHeight) + 3 * sky.shower);
    const double turbulence = 0.35 + 0.1 * std::min(1.0, sky.front.wind);
    weather.windSpeed = wind * (1 + turbulence * noise_.smooth(kWindTurbulence, time, 7));
    // The strongest of the last minutes: never below what blows at any moment of them.
    weather.windGust = wind * (1 + turbulence * (1.3 + 0.3 * noise_.smooth(kGustMinutes, time, 8 * kMinute)));
    const double sway = 25 / (1 + 0.5 * wind) * noise_.smooth(kDirectionMinutes, time, 2 * kMinute);
    const double direction = 235 + 70 * noise_.smooth(kDirectionDays, time, 2.5 * kDay) + sky.front.veer + sway;
    weather.windDirection = std::fmod(direction + 720, 360);

    weather.solarRadiation = clearSkyRadiation(sky.sunHeight) * (1 - 0.75 * std::pow(sky.cloud, 3.4));
    weather.uvIndex = clearSkyUVIndex(sky.sunHeight) * (1 - 0.6 * std::pow(sky.cloud, 3));

    // Heated in winter, a little warmer in summer; the air outside comes in, dry in winter.
    weather.indoorTemperature =
        21.3 + 1.3 * season(time) + 0.15 * warmthOfDay(time, sky) + 0.4 * noise_.smooth(kIndoorWarmth, time, 5 * kHour);
    weather.indoorHumidity = 46 + 7 * season(time) + 3 * sky.front.warmth - 2 * sky.front.cold +
                             4 * noise_.smooth(kIndoorMoisture, time, 7 * kHour);
    return weather;
}

double WeatherModel::rainRate(Seconds time) const {
    const Seconds moment = (std::floor(time / kMinute) + 0.5) * kMinute;
    const auto front = frontalWeather(noise_, moment);
    const double band = front.band * (1.3 + 1.1 * noise_.smooth(kRainBand, moment, 9 * kMinute));
    const double rate = band + 9 * shower(moment, front);
    return rate < kLeastRate ? 0 : rate;
}

double WeatherModel::rain(Seconds from, Seconds to) const {
    double amount = 0;
    while (from < to) {
        const Seconds end = std::min(to, (std::floor(from / kMinute) + 1) * kMinute);
        amount += rainRate(from) * (end - from) / kHour;
        from = end;
    }
    return amount;
}

double WeatherModel::rainToday(Seconds time) const {
    return rain(localMidnight(time), time);
}

Reading WeatherModel::reading(Seconds time, Seconds since) const {
    const Weather weather = at(time);
    Reading reading{time, {}};
    for (const auto& field : kFields) reading.measurements.push_back({std::string(field.key), weather.*field.value});
    reading.measurements.push_back({std::string(kRainIncrement), rain(since, time)});
    reading.measurements.push_back({std::string(kRainToday), rainToday(time)});
    return reading;
}

}  // namespace zor
