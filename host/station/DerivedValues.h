#pragma once
// Values computed from others by published formulae. All in base units: °C, %, m/s, hPa, mm, mm/h, seconds.

#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "host/station/History.h"
#include "host/station/Reading.h"

namespace zor {

/// Magnus formula with the coefficients of Alduchov and Eskridge (1996), J. Appl. Meteor. 35, 601-609.
/// Nothing for a humidity of 0 or less.
std::optional<double> dewPoint(double celsius, double humidity);
/// US National Weather Service: Rothfusz regression with its two adjustments (NWS Technical Attachment SR 90-23),
/// Steadman's simple formula below 80 °F.
double heatIndex(double celsius, double humidity);
/// Environment Canada and US National Weather Service, 2001; the air temperature itself above 10 °C (50 °F) or below
/// 4.8 km/h (3 mph).
double windChill(double celsius, double metresPerSecond);
/// Wind chill when it is cold, heat index when it is hot, else the air temperature.
double feelsLike(double celsius, double humidity, double metresPerSecond);
/// Change over three hours (WMO No. 8), from the sample nearest to three hours before the last one, at most 20 minutes
/// off; nothing without one.
std::optional<double> pressureTrend(std::span<const Sample> pressures);
/// Amount per hour over the last 15 minutes of rain increments that end at `end`.
double rainRate(std::span<const Sample> increments, Seconds end);

/// The start of the local day that the moment lies in.
Seconds localMidnight(Seconds time);

/// Completes readings with whatever can be derived and is not measured: dew point, heat index, wind chill, feels like,
/// rain rate, rain today and in the last hour, pressure trend.
class DerivedValues {
public:
    /// What is needed of earlier readings comes from `past`, so that a restart loses nothing. `midnight` gives the
    /// start of the day that a moment lies in.
    explicit DerivedValues(std::shared_ptr<History> past, Seconds (*midnight)(Seconds) = localMidnight)
        : past_(std::move(past)), midnight_(midnight) {}

    void complete(Reading& reading) const;

private:
    std::vector<Sample> samplesUpTo(const Reading& reading, std::string_view key, Seconds from) const;
    void completeTemperatures(Reading& reading) const;
    void completeRain(Reading& reading) const;
    void completePressure(Reading& reading) const;

    std::shared_ptr<History> past_;
    Seconds (*midnight_)(Seconds);
};

}  // namespace zor
