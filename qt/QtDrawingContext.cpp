#include "qt/QtDrawingContext.h"

#include <QPaintEngine>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "qt/DashedLines.h"
#include "qt/LevelGradient.h"
#include "qt/PdfLines.h"
#include "qt/PolylineShape.h"
#include "qt/QtConversions.h"
#include "qt/QtFonts.h"
#include "qt/QtImages.h"

namespace zor {

namespace {

Qt::PenCapStyle toQt(LineCap cap) {
    switch (cap) {
        case LineCap::butt:
            return Qt::FlatCap;
        case LineCap::round:
            return Qt::RoundCap;
        case LineCap::square:
            return Qt::SquareCap;
    }
    return Qt::FlatCap;
}

Qt::PenJoinStyle toQt(LineJoin join) {
    switch (join) {
        case LineJoin::miter:
            return Qt::SvgMiterJoin;
        case LineJoin::round:
            return Qt::RoundJoin;
        case LineJoin::bevel:
            return Qt::BevelJoin;
    }
    return Qt::SvgMiterJoin;
}

/// Empty for a solid line: Qt counts in line widths and wants pairs.
QList<qreal> dashPattern(const Stroke& stroke) {
    QList<qreal> pattern;
    double sum = 0;
    for (const double length : stroke.dash) {
        if (!std::isfinite(length) || length < 0) return {};
        pattern.append(length / stroke.width);
        sum += length;
    }
    if (!(sum > 0)) return {};
    if (pattern.size() % 2 == 1) pattern.append(QList<qreal>(pattern));
    return pattern;
}

QPen toPen(const Stroke& stroke) {
    QPen pen(zor::toQt(stroke.color), stroke.width, Qt::SolidLine, toQt(stroke.cap), toQt(stroke.join));
    pen.setMiterLimit(10);
    if (const auto pattern = dashPattern(stroke); !pattern.isEmpty()) {
        pen.setDashPattern(pattern);
        if (std::isfinite(stroke.dashPhase)) pen.setDashOffset(stroke.dashPhase / stroke.width);
    }
    return pen;
}

/// A width that is zero, negative or no number draws nothing; Qt would draw a hairline.
bool isVisible(const Stroke& stroke) {
    return stroke.width > 0 && std::isfinite(stroke.width) && stroke.color.alpha > 0;
}

/// The same gradient after a transformation that keeps angles or leaves it along an axis.
Gradient inDeviceUnits(Gradient gradient, const QTransform& device) {
    const auto mapped = [&](Point point) {
        const QPointF there = device.map(zor::toQt(point));
        return Point{there.x(), there.y()};
    };
    gradient.start = mapped(gradient.start);
    gradient.end = mapped(gradient.end);
    gradient.radius *= std::sqrt(std::abs(device.determinant()));
    return gradient;
}

QBrush toBrush(const Gradient& gradient) {
    QGradientStops stops;
    for (const GradientStop& stop : gradient.stops) {
        stops.append({std::clamp(stop.location, 0.0, 1.0), zor::toQt(stop.color)});
    }
    std::ranges::stable_sort(stops, {}, &QGradientStop::first);
    const auto withStops = [&](auto&& made) {
        made.setStops(stops);
        return QBrush(made);
    };
    return gradient.kind == Gradient::Kind::linear
               ? withStops(QLinearGradient(zor::toQt(gradient.start), zor::toQt(gradient.end)))
               : withStops(QRadialGradient(zor::toQt(gradient.start), gradient.radius));
}

/// The smallest rectangle of whole pixels around one that is parallel to them.
QRectF wholePixels(const QRectF& device) {
    constexpr double tolerance = 1e-6;
    const QPointF topLeft(std::floor(device.left() + tolerance), std::floor(device.top() + tolerance));
    const QPointF bottomRight(std::ceil(device.right() - tolerance), std::ceil(device.bottom() - tolerance));
    return {topLeft, bottomRight};
}

/// Lets the painter draw in the units of its device as long as it lives.
class InDeviceUnits {
public:
    explicit InDeviceUnits(QPainter& painter) : painter_(painter) {
        painter_.save();
        painter_.setWorldTransform(painter_.deviceTransform().inverted() * painter_.worldTransform());
    }
    ~InDeviceUnits() { painter_.restore(); }
    InDeviceUnits(const InDeviceUnits&) = delete;
    InDeviceUnits& operator=(const InDeviceUnits&) = delete;

private:
    QPainter& painter_;
};

/// The corners of a single area within straight lines; none for other paths.
QPolygonF edgeOf(const Path& path) {
    QPolygonF edge;
    for (const Path::Element& element : path.elements()) {
        const bool isFirst = edge.isEmpty();
        if (element.verb == Path::Verb::close && !isFirst) continue;
        if (element.verb != (isFirst ? Path::Verb::move : Path::Verb::line)) return {};
        edge.append(zor::toQt(element.points[0]));
    }
    return edge;
}

/// Whether a line is as wide in every direction, and not mirrored.
bool isSimilarity(const QTransform& transform) {
    return transform.type() <= QTransform::TxRotate && transform.m11() == transform.m22() &&
           transform.m12() == -transform.m21() && transform.isInvertible();
}

double startOf(double start, double room, double used, double share) {
    return start + (room - used) * share;
}

}  // namespace

QtDrawingContext::QtDrawingContext(QPainter& painter, PdfLines* lines)
    : painter_(painter), lines_(lines), isRaster_(painter.paintEngine()->type() == QPaintEngine::Raster) {
    painter_.save();
    painter_.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);
    // Documents keep pictures as they are instead of as JPEG.
    painter_.setRenderHint(QPainter::LosslessImageRendering);
    painter_.setBrush(Qt::NoBrush);
}

QtDrawingContext::~QtDrawingContext() {
    for (; saved_ > 0; --saved_) painter_.restore();
    painter_.restore();
}

void QtDrawingContext::save() {
    painter_.save();
    ++saved_;
}

void QtDrawingContext::restore() {
    if (saved_ == 0) return;
    --saved_;
    painter_.restore();
}

void QtDrawingContext::translate(double dx, double dy) {
    painter_.translate(dx, dy);
}

void QtDrawingContext::scale(double sx, double sy) {
    painter_.scale(sx, sy);
}

void QtDrawingContext::rotate(double degrees) {
    painter_.rotate(degrees);
}

void QtDrawingContext::clipToRect(const Rect& rect) {
    QRectF clip = zor::toQt(rect);
    // The raster engine would round the edges to the nearest pixel, which cuts antialiased edges off that lie within.
    if (hasParallelPixels()) {
        const QTransform device = painter_.deviceTransform();
        clip = device.inverted().mapRect(wholePixels(device.mapRect(clip)));
    }
    painter_.setClipRect(clip, Qt::IntersectClip);
}

void QtDrawingContext::clipToPath(const Path& path) {
    painter_.setClipPath(zor::toQt(path), Qt::IntersectClip);
}

Rect QtDrawingContext::alignedToPixels(const Rect& rect) const {
    if (!hasParallelPixels() || !isDrawable(rect)) return rect;
    const QTransform device = painter_.deviceTransform();
    const QRectF exact = device.mapRect(zor::toQt(rect));
    const QRectF pixels(QPointF(std::round(exact.left()), std::round(exact.top())),
                        QPointF(std::round(exact.right()), std::round(exact.bottom())));
    const QRectF aligned = device.inverted().mapRect(pixels);
    return {aligned.x(), aligned.y(), aligned.width(), aligned.height()};
}

bool QtDrawingContext::hasParallelPixels() const {
    const QTransform device = painter_.deviceTransform();
    return isRaster_ && device.type() <= QTransform::TxScale && device.isInvertible();
}

void QtDrawingContext::fillPath(const Path& path, const Color& color) {
    painter_.fillPath(zor::toQt(path), zor::toQt(color));
}

void QtDrawingContext::fillPathWithGradient(const Path& path, const Gradient& gradient) {
    if (gradient.stops.empty() || fillWithLevelGradient(painter_, path, gradient)) return;
    if (!lines_) return painter_.fillPath(zor::toQt(path), toBrush(gradient));
    const QTransform device = painter_.deviceTransform();
    // Qt writes where a gradient's opacity begins and ends without regard to any transformation.
    const QBrush brush = toBrush(inDeviceUnits(gradient, device));
    const QPolygonF edge = device.map(edgeOf(path));
    const InDeviceUnits units(painter_);
    if (!PdfLines::canHold(edge)) return painter_.fillPath(device.map(zor::toQt(path)), brush);
    QPainterPath standIn;
    standIn.setFillRule(Qt::WindingFill);
    standIn.addPolygon(lines_->add(edge));
    painter_.fillPath(standIn, brush);
}

void QtDrawingContext::strokePath(const Path& path, const Stroke& stroke) {
    if (!isVisible(stroke) ||
        (isRaster_ && !dashPattern(stroke).isEmpty() && drawDashedLines(painter_, path, stroke))) {
        return;
    }
    painter_.strokePath(zor::toQt(path), toPen(stroke));
}

void QtDrawingContext::strokePolyline(const std::vector<Point>& points, const Stroke& stroke) {
    if (!isVisible(stroke)) return;
    if (dashPattern(stroke).isEmpty() && PixelCoverage::isPossible(painter_)) {
        const QRgb color = qPremultiply(zor::toQt(stroke.color).rgba());
        coverageOfPolyline(painter_, points, stroke).paint(painter_, [color](int) { return color; });
        return;
    }
    QPolygonF line;
    line.reserve(static_cast<qsizetype>(points.size()));
    for (const Point& point : points) line.append(zor::toQt(point));
    QPen pen = toPen(stroke);
    const QTransform device = painter_.deviceTransform();
    // The outline of a translucent line is what Qt writes.
    const bool isWritten = lines_ && stroke.color.alpha == 255 && isSimilarity(device);
    if (const QPolygonF mapped = device.map(line); isWritten && PdfLines::canHold(mapped)) {
        const InDeviceUnits units(painter_);
        pen.setWidthF(stroke.width * std::sqrt(device.determinant()));
        painter_.setPen(pen);
        return painter_.drawPolyline(lines_->add(mapped));
    }
    painter_.setPen(pen);
    painter_.drawPolyline(line);
}

void QtDrawingContext::fillRect(const Rect& rect, const Color& color) {
    if (!rect.isEmpty() && isDrawable(rect)) painter_.fillRect(zor::toQt(rect), zor::toQt(color));
}

void QtDrawingContext::drawImage(const Image& image, const Rect& rect) {
    QtImages::shared().draw(painter_, image, rect);
}

void QtDrawingContext::drawText(std::string_view text, const Rect& rect, const Font& font, const Color& color,
                                TextAlignment alignment, VerticalAlignment vertical) {
    const TextBlock& block = QtFonts::shared().block(text, font);
    painter_.setPen(zor::toQt(color));
    const double across = alignment == TextAlignment::left ? 0 : alignment == TextAlignment::center ? 0.5 : 1;
    const double down = vertical == VerticalAlignment::top ? 0 : vertical == VerticalAlignment::center ? 0.5 : 1;
    double baseLine = startOf(rect.y, rect.height, block.size().height, down) + block.ascent;
    for (const TextBlock::Line& line : block.lines) {
        const QPointF start(startOf(rect.x, rect.width, line.width, across), baseLine);
        for (const QGlyphRun& run : line.runs) painter_.drawGlyphRun(start, run);
        baseLine += block.lineHeight;
    }
}

}  // namespace zor
