#include "host/instruments/GaugeGeometry.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zor {

double dialBearing(double fraction) {
    return dialStart + dialSweep * std::clamp(fraction, 0.0, 1.0);
}

Point pointAtBearing(Point center, double radius, double bearing) {
    const double radians = bearing * std::numbers::pi / 180;
    return {center.x + radius * std::sin(radians), center.y - radius * std::cos(radians)};
}

Path arcBetweenBearings(Point center, double radius, double from, double to) {
    // A path's angles begin at the right.
    return Path().arc(center, radius, from - 90, to - 90);
}

Rect squareAround(Point center, double radius) {
    return {center.x - radius, center.y - radius, 2 * radius, 2 * radius};
}

}  // namespace zor
