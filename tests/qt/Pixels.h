#pragma once
// Looks at what was drawn.

#include <QColor>
#include <QImage>
#include <QRect>

#include "qt/QtPictures.h"

namespace zor::test {

/// The drawing as a picture, decoded again.
inline QImage picture(Size size, const Toolkit::Drawing& drawing) {
    const auto png = pngOfDrawing(size, drawing);
    return png ? QImage::fromData(png->data(), static_cast<int>(png->size())) : QImage();
}

/// The smallest rectangle around all pixels that are at least half opaque.
inline QRect inkOf(const QImage& image) {
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) >= 128) ink |= QRect(x, y, 1, 1);
        }
    }
    return ink;
}

}  // namespace zor::test
