#include "stations/simulator/Sun.h"

#include <cmath>
#include <numbers>

namespace zor {
namespace {

constexpr double kTurn = 2 * std::numbers::pi;
constexpr double kDay = 86400;
constexpr double kYear = 365.2425 * kDay;

double radians(double degrees) {
    return degrees * std::numbers::pi / 180;
}

double fractionOf(double value) {
    return value - std::floor(value);
}

double declination(double year) {
    const double a = kTurn * year;
    return 0.006918 - 0.399912 * std::cos(a) + 0.070257 * std::sin(a) - 0.006758 * std::cos(2 * a) +
           0.000907 * std::sin(2 * a) - 0.002697 * std::cos(3 * a) + 0.00148 * std::sin(3 * a);
}

/// How far the true sun is ahead of the mean one, as an angle.
double equationOfTime(double year) {
    const double a = kTurn * year;
    return 0.000075 + 0.001868 * std::cos(a) - 0.032077 * std::sin(a) - 0.014615 * std::cos(2 * a) -
           0.040849 * std::sin(2 * a);
}

}  // namespace

double yearFraction(Seconds time) {
    return fractionOf(time / kYear);
}

double solarHour(Seconds time, double longitude) {
    return 24 * fractionOf(time / kDay + longitude / 360);
}

double sunHeight(Seconds time, const Place& place) {
    const double year = yearFraction(time);
    const double tilt = declination(year);
    const double hourAngle = kTurn * (solarHour(time, place.longitude) / 24 - 0.5) + equationOfTime(year);
    const double latitude = radians(place.latitude);
    return std::sin(latitude) * std::sin(tilt) + std::cos(latitude) * std::cos(tilt) * std::cos(hourAngle);
}

double noonSunHeight(Seconds time, double latitude) {
    return std::cos(radians(latitude) - declination(yearFraction(time)));
}

double clearSkyRadiation(double sunHeight) {
    return sunHeight > 0 ? 1098 * sunHeight * std::exp(-0.059 / sunHeight) : 0;
}

double clearSkyUVIndex(double sunHeight) {
    return sunHeight > 0 ? 12.5 * std::pow(sunHeight, 2.42) : 0;
}

}  // namespace zor
