#pragma once
// The program's values as Qt's, and back.

#include <QColor>
#include <QPainterPath>
#include <QPointF>
#include <QRectF>
#include <QString>
#include <string>
#include <string_view>

#include "host/foundation/Color.h"
#include "host/foundation/Geometry.h"
#include "host/views/Path.h"

namespace zor {

inline QPointF toQt(Point point) {
    return {point.x, point.y};
}
inline QRectF toQt(const Rect& rect) {
    return {rect.x, rect.y, rect.width, rect.height};
}
inline QColor toQt(const Color& color) {
    return {color.red, color.green, color.blue, color.alpha};
}
inline QString toQt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
/// What lies inside is decided by the winding number.
QPainterPath toQt(const Path& path);

inline Point fromQt(QPointF point) {
    return {point.x(), point.y()};
}

/// A rectangle or point with y downwards from the top of the primary screen as one with its origin at the bottom left,
/// or the other way round.
Rect flippedOnScreen(const Rect& rect);
Point flippedOnScreen(Point point);

}  // namespace zor
