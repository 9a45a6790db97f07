#pragma once
// Drawings as files. Needs fonts, thus a QGuiApplication, but neither a display nor widgets.

#include <memory>

#include "host/views/Toolkit.h"

namespace zor {

/// One page exactly `size` points large, a side below one point counting as one, with vectors and embedded fonts. The
/// same drawing gives the same bytes. Empty where a side is not finite or beyond `largestDrawableSide`.
std::shared_ptr<const Bytes> pdfOfDrawing(Size size, const Toolkit::Drawing& drawing);
/// One pixel per point, a fraction of a point counting as a pixel, on a transparent ground. Empty for an empty size,
/// for one that is not drawable, and where there is no memory for it.
std::shared_ptr<const Bytes> pngOfDrawing(Size size, const Toolkit::Drawing& drawing);

}  // namespace zor
