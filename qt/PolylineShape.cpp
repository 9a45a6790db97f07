#include "qt/PolylineShape.h"

#include <QPainter>
#include <QPolygonF>
#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

#include "qt/QtConversions.h"

namespace zor {

namespace {

/// Where the line turns by less, its edges meet in a point on either side: nobody sees the kind of the join.
const double gentleTurnCosine = std::cos(15 * std::numbers::pi / 180);
/// A pointed corner may reach out this many half widths before it is cut off.
constexpr double miterLimit = 10;
/// In pixels, how far a round corner may be off.
constexpr double roundness = 0.05;

double dot(QPointF a, QPointF b) {
    return QPointF::dotProduct(a, b);
}
double cross(QPointF a, QPointF b) {
    return a.x() * b.y() - a.y() * b.x();
}
QPointF turned(QPointF vector, double radians) {
    const double c = std::cos(radians), s = std::sin(radians);
    return {vector.x() * c - vector.y() * s, vector.x() * s + vector.y() * c};
}

double pixelsPerPoint(const QTransform& device) {
    return std::sqrt(std::abs(device.determinant()));
}

/// Walks along the line and covers its areas.
class Outline {
public:
    Outline(PixelCoverage& coverage, const Stroke& stroke, const QTransform& device)
        : coverage_(coverage), stroke_(stroke), device_(device), half_(stroke.width / 2) {
        const double pixels = half_ * pixelsPerPoint(device);
        arcStep_ = 2 * std::acos(1 - std::min(roundness / pixels, 0.5));
    }

    /// At least two points, no two neighbours equal.
    void trace(std::span<const QPointF> points) {
        QPointF normal = normalOf(points[0], points[1]);
        addCap(points[0], -normal);
        open(points[0], normal);
        for (std::size_t i = 1; i + 1 < points.size(); ++i) {
            const QPointF next = normalOf(points[i], points[i + 1]);
            addCorner(points[i], normal, next);
            normal = next;
        }
        close(points.back(), normal);
        addCap(points.back(), normal);
    }

private:
    /// Half the line's width to the line's right.
    QPointF normalOf(QPointF from, QPointF to) const {
        const QPointF along = to - from;
        return QPointF(-along.y(), along.x()) * (half_ / std::hypot(along.x(), along.y()));
    }

    void open(QPointF at, QPointF normal) {
        right_.assign(1, at + normal);
        left_.assign(1, at - normal);
    }

    void close(QPointF at, QPointF normal) {
        right_.push_back(at + normal);
        left_.push_back(at - normal);
        right_.insert(right_.end(), left_.rbegin(), left_.rend());
        cover(right_);
    }

    /// The corners are in pixels afterwards.
    void cover(std::vector<QPointF>& corners) {
        for (QPointF& corner : corners) corner = device_.map(corner);
        coverage_.addArea(corners);
    }

    void addCorner(QPointF at, QPointF before, QPointF after) {
        const double cosine = dot(before, after) / (half_ * half_);
        if (cosine > gentleTurnCosine) {
            const QPointF middle = (before + after) / (1 + cosine);
            right_.push_back(at + middle);
            left_.push_back(at - middle);
            return;
        }
        close(at, before);
        open(at, after);
        // The gap opens on the outer side of the turn; its wedge runs in the sense of the other areas.
        const bool turnsRight = cross(before, after) > 0;
        const QPointF first = turnsRight ? -before : after;
        const QPointF last = turnsRight ? -after : before;
        wedge_.assign({at, at + last});
        if (stroke_.join == LineJoin::round) {
            addArc(at, last, -std::acos(std::clamp(cosine, -1.0, 1.0)));
        } else if (stroke_.join == LineJoin::miter && (1 + cosine) * miterLimit * miterLimit >= 2) {
            wedge_.push_back(at + (first + last) / (1 + cosine));
        }
        wedge_.push_back(at + first);
        cover(wedge_);
    }

    /// Corners of the wedge on the circle around `at` from `start` on, without the last.
    void addArc(QPointF at, QPointF start, double radians) {
        const int count = static_cast<int>(std::ceil(std::abs(radians) / arcStep_));
        for (int i = 1; i < count; ++i) wedge_.push_back(at + turned(start, radians * i / count));
    }

    /// From the right to the left of who walks off the line's end.
    void addCap(QPointF at, QPointF right) {
        if (stroke_.cap == LineCap::butt) return;
        wedge_.assign(1, at + right);
        if (stroke_.cap == LineCap::round) {
            addArc(at, right, -std::numbers::pi);
        } else {
            const QPointF outwards = turned(right, -std::numbers::pi / 2);
            wedge_.insert(wedge_.end(), {at + right + outwards, at - right + outwards});
        }
        wedge_.push_back(at - right);
        cover(wedge_);
    }

    PixelCoverage& coverage_;
    const Stroke& stroke_;
    const QTransform& device_;
    double half_;
    /// Radians.
    double arcStep_;
    std::vector<QPointF> right_;
    std::vector<QPointF> left_;
    std::vector<QPointF> wedge_;
};

/// Without points that are not finite and neighbours that are equal.
QList<QPointF> distinct(std::span<const Point> points) {
    QList<QPointF> result;
    result.reserve(static_cast<qsizetype>(points.size()));
    for (const Point& point : points) {
        if (!std::isfinite(point.x) || !std::isfinite(point.y)) continue;
        if (result.empty() || fromQt(result.back()) != point) result.push_back(toQt(point));
    }
    return result;
}

/// The pixels that the line can reach.
QRectF reach(const QList<QPointF>& line, const Stroke& stroke, const QTransform& device) {
    const double scale = std::max(std::hypot(device.m11(), device.m12()), std::hypot(device.m21(), device.m22()));
    const double farthest = stroke.join == LineJoin::miter ? miterLimit : std::numbers::sqrt2;
    // A pixel more for those that are only touched.
    const double margin = scale * stroke.width / 2 * farthest + 1;
    return device.mapRect(QPolygonF(line).boundingRect()).adjusted(-margin, -margin, margin, margin);
}

}  // namespace

PixelCoverage coverageOfPolyline(const QPainter& painter, std::span<const Point> points, const Stroke& stroke) {
    const QTransform device = painter.deviceTransform();
    const QList<QPointF> line = distinct(points);
    if (line.size() < 2 || !(stroke.width > 0)) return {painter, {}};
    PixelCoverage coverage(painter, reach(line, stroke, device));
    Outline(coverage, stroke, device).trace(line);
    return coverage;
}

}  // namespace zor
