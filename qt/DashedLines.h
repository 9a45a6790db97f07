#pragma once

#include "host/views/DrawingContext.h"

class QPainter;

namespace zor {

/// Draws a stroke of dashed lines that are parallel to the pixels, such as a grid, in whole rows of pixels at once. A
/// raster painter that strokes them dash by dash takes many times as long. False, and nothing drawn, where the stroke is
/// another one or translucent, or where the painter does not clip.
bool drawDashedLines(QPainter& painter, const Path& path, const Stroke& stroke);

}  // namespace zor
