#include "qt/PolylineShape.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "qt/QtConversions.h"

namespace zor {

namespace {

constexpr std::size_t segmentsPerPiece = 32;
/// Where the line turns by less, its edges meet in a point on either side: nobody sees the kind of the join.
const double gentleTurnCosine = std::cos(15 * std::numbers::pi / 180);
/// A pointed corner may reach out this many half widths before it is cut off.
constexpr double miterLimit = 10;

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

/// Builds one shape out of areas that all run in the same sense, so that none cuts a hole into another.
class Outline {
public:
    explicit Outline(const Stroke& stroke) : stroke_(stroke), half_(stroke.width / 2) {
        path_.setFillRule(Qt::WindingFill);
    }

    /// The points of the piece, no two neighbours equal; whether the line itself begins and ends with it.
    QPainterPath trace(std::span<const QPointF> points, bool begins, bool ends) {
        path_.reserve(static_cast<int>(points.size()) * 5);
        QPointF normal = normalOf(points[0], points[1]);
        if (begins) addCap(points[0], normal, -1);
        open(points[0], normal);
        for (std::size_t i = 1; i + 1 < points.size(); ++i) {
            const QPointF next = normalOf(points[i], points[i + 1]);
            addCorner(points[i], normal, next);
            normal = next;
        }
        close(points.back(), normal);
        if (ends) addCap(points.back(), normal, 1);
        return path_;
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
        addArea(right_);
    }

    void addArea(const std::vector<QPointF>& corners) {
        path_.moveTo(corners.front());
        std::for_each(corners.begin() + 1, corners.end(), [this](QPointF corner) { path_.lineTo(corner); });
        path_.closeSubpath();
    }

    void addCorner(QPointF at, QPointF before, QPointF after) {
        const double square = half_ * half_;
        const double cosine = dot(before, after) / square;
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
        std::vector<QPointF> wedge{at, at + last};
        if (stroke_.join == LineJoin::round) {
            addArc(wedge, at, last, -std::acos(std::clamp(cosine, -1.0, 1.0)));
        } else if (stroke_.join == LineJoin::miter && (1 + cosine) * miterLimit * miterLimit >= 2) {
            wedge.push_back(at + (first + last) / (1 + cosine));
        }
        wedge.push_back(at + first);
        addArea(wedge);
    }

    /// Corners on the circle around `at` from `start` on, without the last.
    void addArc(std::vector<QPointF>& corners, QPointF at, QPointF start, double radians) const {
        // As many as keep within a twentieth of a point of the circle.
        const double step = 2 * std::acos(1 - std::min(0.05 / half_, 0.5));
        const int count = static_cast<int>(std::ceil(std::abs(radians) / step));
        for (int i = 1; i < count; ++i) corners.push_back(at + turned(start, radians * i / count));
    }

    /// `direction` is 1 at the line's end, -1 at its beginning.
    void addCap(QPointF at, QPointF normal, int direction) {
        if (stroke_.cap == LineCap::butt) return;
        const QPointF start = normal * direction;
        std::vector<QPointF> cap{at + start};
        if (stroke_.cap == LineCap::round) {
            addArc(cap, at, start, -std::numbers::pi);
        } else {
            const QPointF outwards = turned(start, -std::numbers::pi / 2);
            cap.insert(cap.end(), {at + start + outwards, at - start + outwards});
        }
        cap.push_back(at - start);
        addArea(cap);
    }

    const Stroke& stroke_;
    double half_;
    QPainterPath path_;
    std::vector<QPointF> right_;
    std::vector<QPointF> left_;
};

/// Without points that are not finite and neighbours that are equal.
std::vector<QPointF> distinct(std::span<const Point> points) {
    std::vector<QPointF> result;
    result.reserve(points.size());
    for (const Point& point : points) {
        if (!std::isfinite(point.x) || !std::isfinite(point.y)) continue;
        if (result.empty() || fromQt(result.back()) != point) result.push_back(toQt(point));
    }
    return result;
}

/// Cuts what has been traced, up to `end`, off the line, but for its last `overlap` points. Gives the index, below
/// `end`, at which the rest begins.
std::size_t cutTraced(std::vector<QPointF>& line, std::size_t end, double overlap) {
    for (std::size_t index = end - 1;; --index) {
        const QPointF step = line[index] - line[index + 1];
        const double length = std::hypot(step.x(), step.y());
        if (index > 0 && length < overlap) {
            overlap -= length;
            continue;
        }
        if (length > overlap) line[index] = line[index + 1] + step * (overlap / length);
        return index;
    }
}

}  // namespace

std::vector<QPainterPath> polylineShapes(std::span<const Point> points, const Stroke& stroke, double overlap,
                                         bool inOnePiece) {
    std::vector<QPointF> line = distinct(points);
    std::vector<QPainterPath> shapes;
    if (line.size() < 2 || !(stroke.width > 0)) return shapes;
    const std::size_t last = line.size() - 1;
    const std::size_t perPiece = inOnePiece ? last : segmentsPerPiece;
    for (std::size_t begin = 0, end = 0; end < last; begin = cutTraced(line, end, overlap)) {
        // The piece adds so many segments to what was traced before.
        const bool begins = end == 0;
        end = std::min(end + perPiece, last);
        shapes.push_back(Outline(stroke).trace(std::span(line).subspan(begin, end - begin + 1), begins, end == last));
    }
    return shapes;
}

}  // namespace zor
