#pragma once
// The outline of a long stroked line, in areas that are filled quickly.

#include <span>

#include "host/views/DrawingContext.h"
#include "qt/PixelCoverage.h"

namespace zor {

/// What the solid line covers where the painter draws it now, dashes left out; PixelCoverage::isPossible tells whether
/// it can be said. Points that are not finite are passed over.
PixelCoverage coverageOfPolyline(const QPainter& painter, std::span<const Point> points, const Stroke& stroke);

}  // namespace zor
