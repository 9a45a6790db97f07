#include "host/foundation/Geometry.h"

#include <algorithm>
#include <cmath>

namespace zor {

namespace {

struct Span {
    double start = 0;
    double length = 0;
};

/// What two spans share; without length where that is nothing or an end is NaN.
Span sharedSpan(double aStart, double aEnd, double bStart, double bEnd) {
    if (!(aStart < bEnd && bStart < aEnd)) return {};
    const double start = std::max(aStart, bStart);
    return {start, std::min(aEnd, bEnd) - start};
}

}  // namespace

bool intersectsRect(const Rect& a, const Rect& b) {
    return !intersectionRect(a, b).isEmpty();
}

bool containsRect(const Rect& outer, const Rect& inner) {
    return !inner.isEmpty() && inner.x >= outer.x && inner.y >= outer.y && inner.maxX() <= outer.maxX() &&
           inner.maxY() <= outer.maxY();
}

Rect intersectionRect(const Rect& a, const Rect& b) {
    if (a.isEmpty() || b.isEmpty()) return {};
    const Span across = sharedSpan(a.x, a.maxX(), b.x, b.maxX());
    const Span down = sharedSpan(a.y, a.maxY(), b.y, b.maxY());
    const Rect shared{across.start, down.start, across.length, down.length};
    return shared.isEmpty() ? Rect{} : shared;
}

Rect unionRect(const Rect& a, const Rect& b) {
    if (a.isEmpty()) return b.isEmpty() ? Rect{} : b;
    if (b.isEmpty()) return a;
    const double left = std::min(a.x, b.x);
    const double top = std::min(a.y, b.y);
    return {left, top, std::max(a.maxX(), b.maxX()) - left, std::max(a.maxY(), b.maxY()) - top};
}

Rect insetRect(const Rect& rect, double dx, double dy) {
    return {rect.x + dx, rect.y + dy, rect.width - 2 * dx, rect.height - 2 * dy};
}

Rect offsetRect(const Rect& rect, double dx, double dy) {
    return {rect.x + dx, rect.y + dy, rect.width, rect.height};
}

bool isDrawable(const Rect& rect) {
    return std::isfinite(rect.x) && std::isfinite(rect.y) && std::isfinite(rect.width) && std::isfinite(rect.height) &&
           rect.width <= largestDrawableSide && rect.height <= largestDrawableSide;
}

}  // namespace zor
