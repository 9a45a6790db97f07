#pragma once

#include <vector>

#include "host/foundation/Geometry.h"

namespace zor {

/// Lines and curves in points.
class Path {
public:
    enum class Verb { move, line, curve, close };
    struct Element {
        Verb verb;
        /// A curve's two control points come before its end point.
        Point points[3];
    };

    static std::size_t pointCount(Verb verb) { return verb == Verb::curve ? 3 : verb == Verb::close ? 0 : 1; }

    Path& moveTo(Point point);
    /// Begins a subpath where none has begun, as curveTo does at its first control point.
    Path& lineTo(Point point);
    Path& curveTo(Point control1, Point control2, Point end);
    Path& close();
    /// Angles in degrees, clockwise on screen from the positive x axis, at most one turn; joined by a line to the
    /// subpath that has begun.
    Path& arc(Point center, double radius, double startDegrees, double endDegrees);
    Path& addRect(const Rect& rect);
    Path& addRoundedRect(const Rect& rect, double radius);
    Path& addOval(const Rect& rect);
    Path& addSegment(Point from, Point to) { return moveTo(from).lineTo(to); }

    bool isEmpty() const { return elements_.empty(); }
    const std::vector<Element>& elements() const { return elements_; }
    /// The smallest rectangle around all points, control points included.
    Rect bounds() const;
    static Path rect(const Rect& rect) { return Path().addRect(rect); }
    static Path oval(const Rect& rect) { return Path().addOval(rect); }
    static Path circle(Point center, double radius);
    static Path roundedRect(const Rect& rect, double radius) { return Path().addRoundedRect(rect, radius); }

private:
    bool isOpen() const;
    Path& addQuarter(Point from, Point corner, Point end);

    std::vector<Element> elements_;
};

}  // namespace zor
