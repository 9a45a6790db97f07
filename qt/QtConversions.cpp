#include "qt/QtConversions.h"

#include <QGuiApplication>
#include <QScreen>

namespace zor {

QPainterPath toQt(const Path& path) {
    QPainterPath result;
    result.setFillRule(Qt::WindingFill);
    for (const auto& element : path.elements()) {
        const Point* points = element.points;
        switch (element.verb) {
            case Path::Verb::move:
                result.moveTo(toQt(points[0]));
                break;
            case Path::Verb::line:
                result.lineTo(toQt(points[0]));
                break;
            case Path::Verb::curve:
                result.cubicTo(toQt(points[0]), toQt(points[1]), toQt(points[2]));
                break;
            case Path::Verb::close:
                result.closeSubpath();
                break;
        }
    }
    return result;
}

Rect flippedOnScreen(const Rect& rect) {
    const QScreen* screen = QGuiApplication::primaryScreen();
    const double height = screen ? screen->geometry().y() + screen->geometry().height() : 0;
    return {rect.x, height - rect.maxY(), rect.width, rect.height};
}

Point flippedOnScreen(Point point) {
    return flippedOnScreen(Rect{point.x, point.y, 0, 0}).origin();
}

}  // namespace zor
