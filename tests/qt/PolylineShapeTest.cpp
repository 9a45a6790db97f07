#include "qt/PolylineShape.h"

#include <gtest/gtest.h>

#include <QPainter>
#include <QPen>
#include <cmath>
#include <limits>

#include "qt/QtConversions.h"
#include "tests/qt/Pixels.h"

namespace zor {

namespace {

std::vector<Point> wave(int count) {
    std::vector<Point> points;
    for (int i = 0; i < count; ++i) {
        points.push_back({10 + 280.0 * i / count, 60 + 30 * std::sin(i * 9.0 / count) + (i * 7919 % 13) / 3.0});
    }
    return points;
}

QImage byContext(const std::vector<Point>& points, const Stroke& stroke) {
    return test::picture({300, 120}, [&](DrawingContext& context) { context.strokePolyline(points, stroke); });
}

/// Qt's own stroke of the whole line, finely drawn and averaged: where parts of a stroke overlap within one pixel,
/// the painter adds up what each covers.
QImage wholeStroke(const std::vector<Point>& points, const Stroke& stroke, Qt::PenCapStyle cap, Qt::PenJoinStyle join) {
    constexpr int fineness = 8;
    QImage image(fineness * 300, fineness * 120, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(fineness, fineness);
    QPen pen(toQt(stroke.color), stroke.width, Qt::SolidLine, cap, join);
    pen.setMiterLimit(10);
    QPainterPath line;
    line.moveTo(toQt(points[0]));
    for (const Point& point : points) line.lineTo(toQt(point));
    painter.strokePath(line, pen);
    painter.end();
    return image.scaled(300, 120, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

/// How much ink lies elsewhere, as a share of all.
double misplacedInk(const QImage& image, const QImage& wanted) {
    double misplaced = 0, ink = 0;
    for (int y = 0; y < wanted.height(); ++y) {
        for (int x = 0; x < wanted.width(); ++x) {
            misplaced += std::abs(qAlpha(image.pixel(x, y)) - qAlpha(wanted.pixel(x, y)));
            ink += qAlpha(wanted.pixel(x, y));
        }
    }
    return misplaced / ink;
}

}  // namespace

TEST(PolylineShape, IsTheOutlineThatAStrokeHas) {
    const auto points = wave(40);
    // Not quite opaque, so that it is one piece.
    Stroke stroke{.color = Color{0, 0, 0, 254}};
    for (const double width : {1.0, 1.6, 6.0}) {
        stroke.width = width;
        EXPECT_LT(misplacedInk(byContext(points, stroke), wholeStroke(points, stroke, Qt::FlatCap, Qt::SvgMiterJoin)),
                  0.02);
        stroke.cap = LineCap::round;
        stroke.join = LineJoin::round;
        EXPECT_LT(misplacedInk(byContext(points, stroke), wholeStroke(points, stroke, Qt::RoundCap, Qt::RoundJoin)),
                  0.02);
        stroke.cap = LineCap::square;
        stroke.join = LineJoin::bevel;
        EXPECT_LT(misplacedInk(byContext(points, stroke), wholeStroke(points, stroke, Qt::SquareCap, Qt::BevelJoin)),
                  0.02);
        stroke.cap = LineCap::butt;
        stroke.join = LineJoin::miter;
    }
}

TEST(PolylineShape, PiecesLookLikeTheWhole) {
    const auto points = wave(1440);
    for (const double width : {1.0, 1.6, 6.0}) {
        const Stroke stroke{.color = Color::black(), .width = width, .cap = LineCap::round, .join = LineJoin::round};
        EXPECT_LT(misplacedInk(byContext(points, stroke), wholeStroke(points, stroke, Qt::RoundCap, Qt::RoundJoin)),
                  0.1);
    }
}

TEST(PolylineShape, HasNoGapsAndNoSeams) {
    // A straight line of a thousand points: every pixel along it is as dark as any other.
    std::vector<Point> line;
    for (int i = 0; i <= 1000; ++i) line.push_back({10 + i * 0.28, 60 + i * 0.03});
    const QImage image = byContext(line, {.color = Color::black(), .width = 4});
    for (int x = 12; x < 288; ++x) {
        double sum = 0;
        for (int y = 50; y < 100; ++y) sum += qAlpha(image.pixel(x, y)) / 255.0;
        EXPECT_NEAR(sum, 4 * std::hypot(0.28, 0.03) / 0.28, 0.35) << x;
    }
}

TEST(PolylineShape, ATranslucentLineIsEvenWhereItCrossesItself) {
    const std::vector<Point> knot{{20, 20}, {200, 100}, {200, 20}, {20, 100}, {20, 20}, {200, 100}};
    const QImage image = byContext(knot, {.color = Color::black().withAlpha(0.5), .width = 8});
    int darkest = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) darkest = std::max(darkest, qAlpha(image.pixel(x, y)));
    }
    EXPECT_NEAR(darkest, 128, 1);
}

TEST(PolylineShape, TakesManyPointsInPiecesAndOneWhereAsked) {
    const auto points = wave(1440);
    const Stroke stroke{.color = Color::black()};
    EXPECT_EQ(polylineShapes(points, stroke, 1, false).size(), 45u);
    EXPECT_EQ(polylineShapes(points, stroke, 1, true).size(), 1u);
}

TEST(PolylineShape, PassesOverRepeatedAndImpossiblePoints) {
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    const std::vector<Point> points{{20, 50}, {20, 50}, {nan, 3}, {60, 50}, {60, 50}};
    const QImage image = byContext(points, {.color = Color::black(), .width = 4});
    EXPECT_EQ(test::inkOf(image), QRect(20, 48, 40, 4));
    EXPECT_TRUE(polylineShapes(std::vector<Point>{{1, 1}, {1, 1}}, {}, 1, false).empty());
    EXPECT_TRUE(polylineShapes(std::vector<Point>{}, {}, 1, false).empty());
}

TEST(PolylineShape, TurnsBackOnItself) {
    const std::vector<Point> points{{20, 50}, {100, 50}, {40, 50}};
    const Stroke round{.color = Color::black(), .width = 10, .join = LineJoin::round};
    EXPECT_EQ(test::inkOf(byContext(points, round)), QRect(20, 45, 85, 10));
    const Stroke pointed{.color = Color::black(), .width = 10};
    EXPECT_EQ(test::inkOf(byContext(points, pointed)), QRect(20, 45, 80, 10));
}

}  // namespace zor
