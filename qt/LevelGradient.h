#pragma once

#include "host/views/DrawingContext.h"

class QPainter;

namespace zor {

/// Fills an area within straight lines with a linear gradient whose every row of pixels has one color, many times as
/// fast as the painter does. False, with nothing drawn, for other paths, gradients and devices.
bool fillWithLevelGradient(QPainter& painter, const Path& path, const Gradient& gradient);

}  // namespace zor
