#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "host/foundation/Color.h"
#include "host/foundation/Font.h"
#include "host/foundation/Image.h"
#include "host/views/Path.h"

namespace zor {

enum class LineCap { butt, round, square };
enum class LineJoin { miter, round, bevel };
enum class TextAlignment { left, center, right };
enum class VerticalAlignment { top, center, bottom };

struct Stroke {
    Color color;
    /// Points.
    double width = 1;
    /// Points on and off in turn; empty for a solid line.
    std::vector<double> dash = {};
    double dashPhase = 0;
    LineCap cap = LineCap::butt;
    LineJoin join = LineJoin::miter;
};

struct GradientStop {
    /// 0 to 1.
    double location = 0;
    Color color;
};

struct Gradient {
    enum class Kind { linear, radial };
    Kind kind = Kind::linear;
    /// Linear: from start to end. Radial: around start with `radius`.
    Point start;
    Point end;
    double radius = 0;
    std::vector<GradientStop> stops;
};

/// Where everything is drawn: the screen, a picture, a document, a printer, a recording. Coordinates are points with
/// y downwards; the current transformation and clip are saved and restored together.
class DrawingContext {
public:
    virtual ~DrawingContext() = default;

    virtual void save() = 0;
    virtual void restore() = 0;
    virtual void translate(double dx, double dy) = 0;
    virtual void scale(double sx, double sy) = 0;
    /// Clockwise on screen.
    virtual void rotate(double degrees) = 0;
    virtual void clipToRect(const Rect& rect) = 0;
    virtual void clipToPath(const Path& path) = 0;
    /// The nearest rectangle whose edges lie between two pixels of the device, where it has pixels and they are
    /// parallel to the edges.
    virtual Rect alignedToPixels(const Rect& rect) const { return rect; }

    virtual void fillPath(const Path& path, const Color& color) = 0;
    virtual void fillPathWithGradient(const Path& path, const Gradient& gradient) = 0;
    virtual void strokePath(const Path& path, const Stroke& stroke) = 0;
    /// An open line through many points; contexts may draw it faster than a general path.
    virtual void strokePolyline(const std::vector<Point>& points, const Stroke& stroke) = 0;
    virtual void fillRect(const Rect& rect, const Color& color) = 0;
    virtual void drawImage(const Image& image, const Rect& rect) = 0;
    /// One or several lines within the rectangle, not wrapped; what is too wide is drawn all the same.
    virtual void drawText(std::string_view text, const Rect& rect, const Font& font, const Color& color,
                          TextAlignment alignment = TextAlignment::left,
                          VerticalAlignment vertical = VerticalAlignment::top) = 0;
};

}  // namespace zor
