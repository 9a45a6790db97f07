#pragma once

#include <QImage>
#include <memory>

#include "host/foundation/Value.h"

namespace zor {

/// The image as a PNG file with red, green, blue and alpha, 72 pixels per inch, so that a pixel is a point. Empty on
/// failure.
std::shared_ptr<const Bytes> pngOfImage(const QImage& image);

}  // namespace zor
