#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "host/views/DrawingContext.h"

namespace zor {

/// x' = a x + c y + tx, y' = b x + d y + ty.
struct Transform {
    double a = 1, b = 0, c = 0, d = 1, tx = 0, ty = 0;

    Point apply(Point point) const { return {a * point.x + c * point.y + tx, b * point.x + d * point.y + ty}; }
    /// The smallest upright rectangle around the transformed one.
    Rect apply(const Rect& rect) const;
    /// What applies `first` and then the receiver.
    Transform after(const Transform& first) const;
    bool operator==(const Transform&) const = default;
};

/// One drawing operation with its arguments; those that the operation does not have keep their defaults.
struct DrawingOperation {
    /// The name of the context's function: "fillPath", "strokePath", "drawText" ...
    std::string op;
    /// Also the line of strokePolyline; empty where there is only a rectangle.
    Path path;
    Rect rect;
    /// Of the filling, the stroke or the text.
    Color color;
    Stroke stroke;
    Gradient gradient;
    std::shared_ptr<const Image> image;
    std::string text;
    Font font;
    TextAlignment alignment = TextAlignment::left;
    VerticalAlignment verticalAlignment = VerticalAlignment::top;
    /// From the operation's coordinates to those in which the recording began.
    Transform transform;
    /// An upright rectangle around the clip, in the coordinates in which the recording began; none before any clipping.
    std::optional<Rect> clip;

    /// The path's straight pieces [x1, y1, x2, y2] in order, those that close it included; a curve counts as its chord.
    std::vector<std::array<double, 4>> segments() const;
    /// Where the rectangle lies in the coordinates in which the recording began.
    Rect placedRect() const { return transform.apply(rect); }
    /// One line without its end; equal operations give equal lines.
    std::string line() const;
};

/// Keeps what is drawn instead of showing it.
class RecordingContext : public DrawingContext {
public:
    const std::vector<DrawingOperation>& operations() const { return operations_; }
    /// Those of one name, in order.
    std::vector<DrawingOperation> operationsNamed(std::string_view op) const;
    /// One line for each operation.
    std::string text() const;
    /// Saves that await their restore.
    std::size_t depth() const { return saved_.size(); }

    void save() override { saved_.push_back(state_); }
    void restore() override;
    void translate(double dx, double dy) override;
    void scale(double sx, double sy) override;
    void rotate(double degrees) override;
    void clipToRect(const Rect& rect) override;
    void clipToPath(const Path& path) override { clipToRect(path.bounds()); }
    void fillPath(const Path& path, const Color& color) override;
    void fillPathWithGradient(const Path& path, const Gradient& gradient) override;
    void strokePath(const Path& path, const Stroke& stroke) override;
    void strokePolyline(const std::vector<Point>& points, const Stroke& stroke) override;
    void fillRect(const Rect& rect, const Color& color) override;
    void drawImage(const Image& image, const Rect& rect) override;
    void drawText(std::string_view text, const Rect& rect, const Font& font, const Color& color,
                  TextAlignment alignment, VerticalAlignment vertical) override;

private:
    struct State {
        Transform transform;
        std::optional<Rect> clip;
    };
    DrawingOperation& record(std::string op);
    void recordStroke(std::string op, Path path, const Stroke& stroke);
    void prepend(const Transform& step) { state_.transform = state_.transform.after(step); }

    State state_;
    std::vector<State> saved_;
    std::vector<DrawingOperation> operations_;
};

}  // namespace zor
