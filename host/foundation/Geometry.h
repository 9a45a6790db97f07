#pragma once
// Points, sizes and rectangles in 64-bit floating-point points, y growing downwards.

#include <string>
#include <string_view>

namespace zor {

struct Point {
    double x = 0;
    double y = 0;
    bool operator==(const Point&) const = default;
};

struct Size {
    double width = 0;
    double height = 0;
    bool operator==(const Size&) const = default;
};

struct Rect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    Point origin() const { return {x, y}; }
    Size size() const { return {width, height}; }
    double maxX() const { return x + width; }
    double maxY() const { return y + height; }
    Point center() const { return {x + width / 2, y + height / 2}; }
    /// A rectangle with a side that is zero, negative or NaN covers nothing.
    bool isEmpty() const { return !(width > 0 && height > 0); }
    bool operator==(const Rect&) const = default;
};

/// Inside: left and top edges count, right and bottom edges do not; an empty rectangle contains nothing.
inline bool pointInRect(Point point, const Rect& rect) {
    return !rect.isEmpty() && point.x >= rect.x && point.x < rect.maxX() && point.y >= rect.y && point.y < rect.maxY();
}
/// Whether the two share an area of positive size; touching edges do not count.
bool intersectsRect(const Rect& a, const Rect& b);
/// Whether `inner`, which must not be empty, lies wholly within `outer`, edges included.
bool containsRect(const Rect& outer, const Rect& inner);
/// The shared area, or the zero rectangle where there is none.
Rect intersectionRect(const Rect& a, const Rect& b);
/// The smallest rectangle around both; an empty one adds nothing.
Rect unionRect(const Rect& a, const Rect& b);
Rect insetRect(const Rect& rect, double dx, double dy);
Rect offsetRect(const Rect& rect, double dx, double dy);
/// Whether all four numbers are finite and no side exceeds `largestDrawableSide`.
bool isDrawable(const Rect& rect);
/// Beyond this many points a side is not drawn: no grid, no picture.
inline constexpr double largestDrawableSide = 100'000;

/// "{{x, y}, {w, h}}", each number with the shortest digits that read back as the same 64-bit float.
std::string stringFromRect(const Rect& rect);
std::string stringFromPoint(Point point);
std::string stringFromSize(Size size);
/// Reads what stringFromRect writes, with free white space and exponents, and the form
/// "{x = 1; y = 2; width = 3; height = 4}". What cannot be read gives zeros.
Rect rectFromString(std::string_view text);
Point pointFromString(std::string_view text);
Size sizeFromString(std::string_view text);

/// The shortest decimal text that reads back as the same number; "nan", "inf" and "-inf" for the others.
std::string shortestNumber(double value);

}  // namespace zor
