#include "host/views/RecordingContext.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zor {

namespace {

void append(std::string& line, std::initializer_list<double> numbers) {
    for (const double number : numbers) line += ' ' + shortestNumber(number);
}

void append(std::string& line, const Path& path) {
    static constexpr std::array<const char*, 4> letters{" M", " L", " C", " Z"};
    for (const auto& element : path.elements()) {
        line += letters[static_cast<std::size_t>(element.verb)];
        for (std::size_t i = 0; i < Path::pointCount(element.verb); ++i) {
            append(line, {element.points[i].x, element.points[i].y});
        }
    }
}

void append(std::string& line, const Stroke& stroke) {
    line += " width";
    append(line, {stroke.width});
    if (!stroke.dash.empty()) line += " dash";
    for (const double length : stroke.dash) append(line, {length});
    if (stroke.dashPhase != 0) append(line += " phase", {stroke.dashPhase});
    if (stroke.cap != LineCap::butt) line += stroke.cap == LineCap::round ? " round-cap" : " square-cap";
    if (stroke.join != LineJoin::miter) line += stroke.join == LineJoin::round ? " round-join" : " bevel-join";
}

void append(std::string& line, const Gradient& gradient) {
    line += gradient.kind == Gradient::Kind::linear ? " linear" : " radial";
    append(line, {gradient.start.x, gradient.start.y, gradient.end.x, gradient.end.y, gradient.radius});
    for (const auto& stop : gradient.stops) {
        append(line, {stop.location});
        line += ' ' + stop.color.text();
    }
}

void append(std::string& line, const Font& font) {
    line += " \"" + font.family + '"';
    append(line, {font.size});
    if (font.bold) line += " bold";
    if (font.italic) line += " italic";
}

}  // namespace

Rect Transform::apply(const Rect& rect) const {
    const std::array corners{apply(rect.origin()), apply(Point{rect.maxX(), rect.y}), apply(Point{rect.x, rect.maxY()}),
                             apply(Point{rect.maxX(), rect.maxY()})};
    const auto [left, right] = std::ranges::minmax(corners, {}, &Point::x);
    const auto [top, bottom] = std::ranges::minmax(corners, {}, &Point::y);
    return {left.x, top.y, right.x - left.x, bottom.y - top.y};
}

Transform Transform::after(const Transform& first) const {
    const Point origin = apply(Point{first.tx, first.ty});
    return {a * first.a + c * first.b,
            b * first.a + d * first.b,
            a * first.c + c * first.d,
            b * first.c + d * first.d,
            origin.x,
            origin.y};
}

std::vector<std::array<double, 4>> DrawingOperation::segments() const {
    std::vector<std::array<double, 4>> segments;
    Point start, current;
    for (const auto& element : path.elements()) {
        const std::size_t count = Path::pointCount(element.verb);
        const Point end = count > 0 ? element.points[count - 1] : start;
        if (element.verb == Path::Verb::move) {
            start = end;
        } else if (count > 0 || current != start) {
            segments.push_back({current.x, current.y, end.x, end.y});
        }
        current = end;
    }
    return segments;
}

std::string DrawingOperation::line() const {
    std::string line = op;
    if (!path.isEmpty()) append(line, path);
    if (rect != Rect{}) append(line, {rect.x, rect.y, rect.width, rect.height});
    if (op.starts_with("stroke")) append(line, stroke);
    if (op == "fillPathWithGradient") append(line, gradient);
    if (op == "drawImage") {
        append(line += " image", {image->size().width, image->size().height});
    } else if (op != "fillPathWithGradient") {
        line += ' ' + color.text();
    }
    if (op == "drawText") {
        static constexpr std::array<const char*, 3> across{" left", " center", " right"};
        static constexpr std::array<const char*, 3> down{" top", " center", " bottom"};
        append(line, font);
        line += across[static_cast<std::size_t>(alignment)];
        line += down[static_cast<std::size_t>(verticalAlignment)];
        line += " \"" + text + '"';
    }
    if (transform != Transform{}) {
        append(line += " at", {transform.a, transform.b, transform.c, transform.d, transform.tx, transform.ty});
    }
    if (clip) append(line += " within", {clip->x, clip->y, clip->width, clip->height});
    return line;
}

std::vector<DrawingOperation> RecordingContext::operationsNamed(std::string_view op) const {
    std::vector<DrawingOperation> found;
    std::ranges::copy_if(operations_, std::back_inserter(found),
                         [&](const DrawingOperation& operation) { return operation.op == op; });
    return found;
}

std::string RecordingContext::text() const {
    std::string text;
    for (const auto& operation : operations_) text += operation.line() + '\n';
    return text;
}

void RecordingContext::restore() {
    if (saved_.empty()) return;
    state_ = saved_.back();
    saved_.pop_back();
}

void RecordingContext::translate(double dx, double dy) {
    prepend({1, 0, 0, 1, dx, dy});
}

void RecordingContext::scale(double sx, double sy) {
    prepend({sx, 0, 0, sy, 0, 0});
}

void RecordingContext::rotate(double degrees) {
    const double angle = degrees * std::numbers::pi / 180;
    const double sine = std::sin(angle), cosine = std::cos(angle);
    prepend({cosine, sine, -sine, cosine, 0, 0});
}

void RecordingContext::clipToRect(const Rect& rect) {
    const Rect placed = state_.transform.apply(rect);
    state_.clip = state_.clip ? intersectionRect(*state_.clip, placed) : placed;
}

void RecordingContext::fillPath(const Path& path, const Color& color) {
    auto& operation = record("fillPath");
    operation.path = path;
    operation.color = color;
}

void RecordingContext::fillPathWithGradient(const Path& path, const Gradient& gradient) {
    auto& operation = record("fillPathWithGradient");
    operation.path = path;
    operation.gradient = gradient;
}

void RecordingContext::strokePath(const Path& path, const Stroke& stroke) {
    recordStroke("strokePath", path, stroke);
}

void RecordingContext::strokePolyline(const std::vector<Point>& points, const Stroke& stroke) {
    Path path;
    for (const Point point : points) path.lineTo(point);
    recordStroke("strokePolyline", std::move(path), stroke);
}

void RecordingContext::fillRect(const Rect& rect, const Color& color) {
    auto& operation = record("fillRect");
    operation.rect = rect;
    operation.color = color;
}

void RecordingContext::drawImage(const Image& image, const Rect& rect) {
    auto& operation = record("drawImage");
    operation.rect = rect;
    operation.image = Image::withData(image.data(), image.size());
}

void RecordingContext::drawText(std::string_view text, const Rect& rect, const Font& font, const Color& color,
                                TextAlignment alignment, VerticalAlignment vertical) {
    auto& operation = record("drawText");
    operation.text = text;
    operation.rect = rect;
    operation.font = font;
    operation.color = color;
    operation.alignment = alignment;
    operation.verticalAlignment = vertical;
}

DrawingOperation& RecordingContext::record(std::string op) {
    auto& operation = operations_.emplace_back();
    operation.op = std::move(op);
    operation.transform = state_.transform;
    operation.clip = state_.clip;
    return operation;
}

void RecordingContext::recordStroke(std::string op, Path path, const Stroke& stroke) {
    auto& operation = record(std::move(op));
    operation.path = std::move(path);
    operation.stroke = stroke;
    operation.color = stroke.color;
}

}  // namespace zor
