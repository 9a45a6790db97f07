#pragma once
// Round instruments measure angles as bearings: degrees clockwise from the top.

#include "host/views/Path.h"

namespace zor {

/// A dial's scale runs clockwise from the lower left to the lower right.
inline constexpr double dialStart = -135;
inline constexpr double dialSweep = 270;

/// The bearing of a place on a dial's scale, 0 to 1; what lies beyond its ends stays at them.
double dialBearing(double fraction);

Point pointAtBearing(Point center, double radius, double bearing);
Path arcBetweenBearings(Point center, double radius, double from, double to);
/// A square around a circle.
Rect squareAround(Point center, double radius);

}  // namespace zor
