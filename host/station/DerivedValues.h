#pragma once
// Values computed from others by published formulae. All in base units: °C, %, m/s, hPa, mm, mm/h, seconds.

#include <optional>
#include <span>
#include <vector>

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

/// Completes a reading with whatever can be derived and is not measured: dew point, heat index, wind chill, feels like,
/// rain rate, rain today, pressure trend. Remembers what it needs of earlier readings.
class DerivedValues {
public:
    /// `midnight` gives the start of the local day that a moment lies in.
    explicit DerivedValues(Seconds (*midnight)(Seconds) = nullptr);
    void complete(Reading& reading);

private:
    Seconds (*midnight_)(Seconds);
    std::vector<Sample> pressures_;
    std::vector<Sample> rain_;
    double rainToday_ = 0;
    Seconds day_ = 0;
};

/// The start of the local day that the moment lies in.
Seconds localMidnight(Seconds time);

}  // namespace zor
