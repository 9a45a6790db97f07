#pragma once
// Where the sun stands and what arrives of it under a clear sky.

#include "host/station/Reading.h"

namespace zor {

/// A place on earth in degrees, north and east positive.
struct Place {
    double latitude = 0;
    double longitude = 0;
};

/// Fraction of the year that has passed, in [0, 1).
double yearFraction(Seconds time);
/// Hours since the mean sun's midnight at the longitude, in [0, 24).
double solarHour(Seconds time, double longitude);
/// Sine of the sun's elevation, negative below the horizon. Declination and equation of time by Spencer (1971),
/// "Fourier series representation of the position of the sun", Search 2 (5), 172.
double sunHeight(Seconds time, const Place& place);
/// Sine of the elevation at the day's highest stand.
double noonSunHeight(Seconds time, double latitude);
/// W/m² on level ground: Haurwitz (1945), J. Meteor. 2, 154-166. 0 with the sun down.
double clearSkyRadiation(double sunHeight);
/// Madronich (2007), Photochem. Photobiol. 83, 1537-1538, for 300 Dobson units of ozone. 0 with the sun down.
double clearSkyUVIndex(double sunHeight);

}  // namespace zor
