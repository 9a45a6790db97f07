#pragma once

#include <QImage>
#include <memory>

#include "host/foundation/Value.h"

namespace zor {

/// The image as a PNG file with red, green, blue and alpha, 72 pixels per inch, so that a pixel is a point. Converted
/// in place where the caller moves it here. Empty on failure.
std::shared_ptr<const Bytes> pngOfImage(QImage image);

}  // namespace zor
