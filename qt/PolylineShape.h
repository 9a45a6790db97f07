#pragma once
// The outline of a long stroked line, in pieces that a raster painter fills quickly.

#include <QPainterPath>
#include <span>
#include <vector>

#include "host/views/DrawingContext.h"

namespace zor {

/// Shapes to be filled one after the other, each with the winding rule, that together cover the solid line. Stroking
/// the line as one general path takes a raster painter more than ten times as long.
/// Pieces overlap along the line by `overlap` points, so that their antialiased ends leave no seam; where that would
/// show, as with a translucent colour, `inOnePiece` gives a single shape, at the price of speed.
std::vector<QPainterPath> polylineShapes(std::span<const Point> points, const Stroke& stroke, double overlap,
                                         bool inOnePiece);

}  // namespace zor
