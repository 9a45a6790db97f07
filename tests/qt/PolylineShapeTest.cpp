#include "qt/PolylineShape.h"

#include <gtest/gtest.h>

#include <QPainter>
#include <QPen>
#include <cmath>
#include <limits>

#include "qt/QtConversions.h"
#include "qt/QtDrawingContext.h"
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

/// The painter's own stroke, whole and at once.
QImage byPainter(const std::vector<Point>& points, double width, const QTransform& transform) {
    QImage image(300, 120, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setTransform(transform);
    QPainterPath line;
    line.moveTo(toQt(points[0]));
    for (const Point& point : points) line.lineTo(toQt(point));
    painter.strokePath(line, QPen(Qt::black, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    return image;
}

QImage seenThrough(const QTransform& transform, const std::vector<Point>& points, const Stroke& stroke) {
    QImage image(300, 120, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setTransform(transform);
    QtDrawingContext(painter).strokePolyline(points, stroke);
    return image;
}

}  // namespace

TEST(PolylineShape, IsTheOutlineThatAStrokeHas) {
    const auto points = wave(40);
    Stroke stroke{.color = Color::black()};
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

TEST(PolylineShape, LooksAsTheWholeLineThatThePainterStrokes) {
    for (const int count : {40, 300, 1440}) {
        const auto points = wave(count);
        // The painter draws thinner lines in a coarser way.
        for (const double width : {1.2, 1.6, 6.0}) {
            const Stroke stroke{
                .color = Color::black(), .width = width, .cap = LineCap::round, .join = LineJoin::round};
            EXPECT_LT(misplacedInk(byContext(points, stroke), byPainter(points, width, {})), 0.02)
                << count << " points, " << width << " wide";
        }
    }
}

TEST(PolylineShape, IsScaledTurnedAndMirroredWithWhatItIsPartOf) {
    const auto points = wave(200);
    const Stroke stroke{.color = Color::black(), .width = 1.6, .cap = LineCap::round, .join = LineJoin::round};
    const QTransform transforms[] = {QTransform::fromScale(2, 2), QTransform::fromScale(0.5, 1.5),
                                     QTransform().translate(40, -20).rotate(30), QTransform(-1, 0, 0, 1, 300, 0),
                                     QTransform(1, 0.2, -0.4, 1, 0.3, 0.7)};
    for (const QTransform& transform : transforms) {
        EXPECT_LT(misplacedInk(seenThrough(transform, points, stroke), byPainter(points, 1.6, transform)), 0.02)
            << transform.m11() << ' ' << transform.m12();
    }
}

TEST(PolylineShape, KeepsWithinRectanglesAndPathsThatClip) {
    const auto points = wave(1440);
    const Stroke stroke{.color = Color::black(), .width = 6};
    const QImage whole = byContext(points, stroke);
    for (const bool isRound : {false, true}) {
        const QImage cut = test::picture({300, 120}, [&](DrawingContext& context) {
            if (isRound) {
                context.clipToPath(Path::oval({50, 40, 100, 50}));
            } else {
                context.clipToRect({50, 40, 100, 50});
            }
            context.strokePolyline(points, stroke);
        });
        EXPECT_EQ(cut.pixel(100, 65), whole.pixel(100, 65));
        EXPECT_EQ(qAlpha(cut.pixel(49, 65)), 0);
        EXPECT_EQ(qAlpha(cut.pixel(150, 65)), 0);
        for (int x = 90; x < 110; ++x) EXPECT_EQ(cut.pixel(x, 60), whole.pixel(x, 60)) << x;
        EXPECT_EQ(qAlpha(cut.pixel(50, 41)) == 0, isRound || qAlpha(whole.pixel(50, 41)) == 0);
    }
}

TEST(PolylineShape, HasDashesWhereAskedFor) {
    const Stroke stroke{.color = Color::black(), .width = 4, .dash = {10, 6}, .dashPhase = 4};
    const QImage image = byContext({{0, 50}, {100, 50}, {200, 50}}, stroke);
    EXPECT_EQ(qAlpha(image.pixel(5, 50)), 255);
    EXPECT_EQ(qAlpha(image.pixel(6, 50)), 0);
    EXPECT_EQ(qAlpha(image.pixel(11, 50)), 0);
    EXPECT_EQ(qAlpha(image.pixel(12, 50)), 255);
}

TEST(PolylineShape, FarAwayPointsDoNoHarm) {
    const std::vector<Point> points{{-1e9, 60}, {1e9, 60}, {1e9, -1e9}, {150, -1e9}, {150, 1e9}};
    const QImage image = byContext(points, {.color = Color::black(), .width = 4});
    EXPECT_EQ(qAlpha(image.pixel(20, 30)), 0);
    EXPECT_EQ(qAlpha(image.pixel(150, 30)), 255);
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

TEST(PolylineShape, PassesOverRepeatedAndImpossiblePoints) {
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    const std::vector<Point> points{{20, 50}, {20, 50}, {nan, 3}, {60, 50}, {60, 50}};
    const QImage image = byContext(points, {.color = Color::black(), .width = 4});
    EXPECT_EQ(test::inkOf(image), QRect(20, 48, 40, 4));
    EXPECT_TRUE(test::inkOf(byContext({{1, 1}, {1, 1}}, {.color = Color::black(), .width = 4})).isEmpty());
    EXPECT_TRUE(test::inkOf(byContext({}, {.color = Color::black(), .width = 4})).isEmpty());
}

TEST(PolylineShape, TurnsBackOnItself) {
    const std::vector<Point> points{{20, 50}, {100, 50}, {40, 50}};
    const Stroke round{.color = Color::black(), .width = 10, .join = LineJoin::round};
    EXPECT_EQ(test::inkOf(byContext(points, round)), QRect(20, 45, 85, 10));
    const Stroke pointed{.color = Color::black(), .width = 10};
    EXPECT_EQ(test::inkOf(byContext(points, pointed)), QRect(20, 45, 80, 10));
}

}  // namespace zor
