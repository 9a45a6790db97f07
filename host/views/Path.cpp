#include "host/views/Path.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace zor {

namespace {

/// Distance of the control points of a cubic that approximates a circular arc of that angle, for radius 1:
/// 4/3 tan(angle/4), where the curve's middle meets the arc (e.g. Goldapp, CAGD 8 (1991), 227-238).
double controlDistance(double radians) {
    return 4.0 / 3.0 * std::tan(radians / 4);
}

Point between(Point from, Point to, double fraction) {
    return {from.x + (to.x - from.x) * fraction, from.y + (to.y - from.y) * fraction};
}

}  // namespace

bool Path::isOpen() const {
    return !elements_.empty() && elements_.back().verb != Verb::close;
}

Path& Path::moveTo(Point point) {
    elements_.push_back({Verb::move, {point, {}, {}}});
    return *this;
}

Path& Path::lineTo(Point point) {
    if (elements_.empty()) return moveTo(point);
    elements_.push_back({Verb::line, {point, {}, {}}});
    return *this;
}

Path& Path::curveTo(Point control1, Point control2, Point end) {
    if (elements_.empty()) moveTo(control1);
    elements_.push_back({Verb::curve, {control1, control2, end}});
    return *this;
}

Path& Path::close() {
    if (isOpen()) elements_.push_back({Verb::close, {}});
    return *this;
}

Path& Path::arc(Point center, double radius, double startDegrees, double endDegrees) {
    if (!std::isfinite(startDegrees) || !std::isfinite(endDegrees)) return *this;
    const double start = startDegrees * std::numbers::pi / 180;
    const double sweep = std::clamp(endDegrees - startDegrees, -360.0, 360.0) * std::numbers::pi / 180;
    const int pieces = std::max(1, static_cast<int>(std::ceil(std::abs(sweep) / (std::numbers::pi / 2) - 1e-9)));
    const double step = sweep / pieces;
    const double distance = radius * controlDistance(step);
    const auto at = [&](double angle) {
        return Point{center.x + radius * std::cos(angle), center.y + radius * std::sin(angle)};
    };
    Point from = at(start);
    isOpen() ? lineTo(from) : moveTo(from);
    for (int piece = 0; piece < pieces; ++piece) {
        const double angle = start + step * piece;
        const double next = angle + step;
        const Point to = at(next);
        curveTo({from.x - distance * std::sin(angle), from.y + distance * std::cos(angle)},
                {to.x + distance * std::sin(next), to.y - distance * std::cos(next)}, to);
        from = to;
    }
    return *this;
}

Path& Path::addRect(const Rect& rect) {
    return moveTo(rect.origin())
        .lineTo({rect.maxX(), rect.y})
        .lineTo({rect.maxX(), rect.maxY()})
        .lineTo({rect.x, rect.maxY()})
        .close();
}

Path& Path::addQuarter(Point from, Point corner, Point end) {
    static const double distance = controlDistance(std::numbers::pi / 2);
    return curveTo(between(from, corner, distance), between(end, corner, distance), end);
}

Path& Path::addRoundedRect(const Rect& rect, double radius) {
    const double r = std::min({radius, rect.width / 2, rect.height / 2});
    if (!(r > 0)) return addRect(rect);
    const double left = rect.x, top = rect.y, right = rect.maxX(), bottom = rect.maxY();
    moveTo({left + r, top}).lineTo({right - r, top});
    addQuarter({right - r, top}, {right, top}, {right, top + r}).lineTo({right, bottom - r});
    addQuarter({right, bottom - r}, {right, bottom}, {right - r, bottom}).lineTo({left + r, bottom});
    addQuarter({left + r, bottom}, {left, bottom}, {left, bottom - r}).lineTo({left, top + r});
    return addQuarter({left, top + r}, {left, top}, {left + r, top}).close();
}

Path& Path::addOval(const Rect& rect) {
    const double left = rect.x, top = rect.y, right = rect.maxX(), bottom = rect.maxY();
    const Point middle = rect.center();
    moveTo({right, middle.y});
    addQuarter({right, middle.y}, {right, bottom}, {middle.x, bottom});
    addQuarter({middle.x, bottom}, {left, bottom}, {left, middle.y});
    addQuarter({left, middle.y}, {left, top}, {middle.x, top});
    return addQuarter({middle.x, top}, {right, top}, {right, middle.y}).close();
}

Path Path::circle(Point center, double radius) {
    return oval({center.x - radius, center.y - radius, 2 * radius, 2 * radius});
}

Rect Path::bounds() const {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    double left = infinity, top = infinity, right = -infinity, bottom = -infinity;
    for (const auto& element : elements_) {
        for (std::size_t i = 0; i < pointCount(element.verb); ++i) {
            left = std::min(left, element.points[i].x);
            right = std::max(right, element.points[i].x);
            top = std::min(top, element.points[i].y);
            bottom = std::max(bottom, element.points[i].y);
        }
    }
    return elements_.empty() ? Rect{} : Rect{left, top, right - left, bottom - top};
}

}  // namespace zor
