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

    Path& moveTo(Point point);
    Path& lineTo(Point point);
    Path& curveTo(Point control1, Point control2, Point end);
    Path& close();
    /// Angles in degrees, clockwise on screen from the positive x axis; joined by a line where the path has begun.
    Path& arc(Point center, double radius, double startDegrees, double endDegrees);
    Path& addRect(const Rect& rect);
    Path& addRoundedRect(const Rect& rect, double radius);
    Path& addOval(const Rect& rect);
    Path& addSegment(Point from, Point to) { return moveTo(from).lineTo(to); }

    bool isEmpty() const { return elements_.empty(); }
    const std::vector<Element>& elements() const { return elements_; }
    static Path rect(const Rect& rect) { return Path().addRect(rect); }
    static Path oval(const Rect& rect) { return Path().addOval(rect); }
    static Path circle(Point center, double radius);
    static Path roundedRect(const Rect& rect, double radius) { return Path().addRoundedRect(rect, radius); }

private:
    std::vector<Element> elements_;
};

}  // namespace zor
