#include "qt/DashedLines.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <cstdlib>
#include <limits>

#include "qt/QtDrawingContext.h"

namespace zor {
namespace {

constexpr int side = 120;

Path grid(double step, double length) {
    Path lines;
    for (double x = 0; x < length; x += step) lines.addSegment({x, 0}, {x, length});
    for (double y = 0; y < length; y += step) lines.addSegment({0, y}, {length, y});
    return lines;
}

/// With clipping, which lets whole rows of pixels be painted, or without, when the painter strokes every dash.
QImage drawn(const Path& path, const Stroke& stroke, double scale, Point shift, bool clipped) {
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(scale, scale);
    QtDrawingContext context(painter);
    if (clipped) context.clipToRect({0, 0, side, side});
    context.translate(shift.x, shift.y);
    context.strokePath(path, stroke);
    return image;
}

int largestDifference(const QImage& one, const QImage& other) {
    int largest = 0;
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            largest = std::max(largest, std::abs(qGray(one.pixel(x, y)) - qGray(other.pixel(x, y))));
        }
    }
    return largest;
}

const Stroke dashes{.color = Color::gray(), .width = 1, .dash = {3, 3}};

void expectAlike(const Path& path, const Stroke& stroke, double scale, Point shift) {
    const QImage rows = drawn(path, stroke, scale, shift, true), strokes = drawn(path, stroke, scale, shift, false);
    // The painter counts coverage more coarsely.
    EXPECT_LE(largestDifference(rows, strokes), 6) << "scale " << scale << ", shifted by " << shift.x;
    EXPECT_GT(largestDifference(rows, drawn({}, stroke, scale, shift, true)), 40);
}

TEST(DashedLines, LookAsIfStroked) {
    for (const double scale : {1.0, 1.25, 1.5, 2.0}) expectAlike(grid(20, 1000), dashes, scale, {});
}

TEST(DashedLines, KeepTheirDashesWhereTheyAreScrolled) {
    // The line lies on the whole of column 7, and its dashes begin at -47, -41 ... 1.
    const QImage image = drawn(Path().addSegment({320.5, 0}, {320.5, 1000}), dashes, 1, {-313, -47}, true);
    for (const int row : {1, 2, 3, 7, 8, 9, 115, 116, 117}) EXPECT_EQ(qGray(image.pixel(7, row)), 128) << row;
    for (const int row : {0, 4, 5, 6, 10, 114, 118}) EXPECT_EQ(qGray(image.pixel(7, row)), 255) << row;
    EXPECT_EQ(qGray(image.pixel(6, 1)), 255);
    EXPECT_EQ(qGray(image.pixel(8, 1)), 255);
}

TEST(DashedLines, CoverPartsOfPixels) {
    // From 10.5 to 13.5 and 16.5 to 17.25 along, and the half of row 9 and of row 10 across.
    const QImage image = drawn(Path().addSegment({0, 0}, {6.75, 0}), dashes, 1, {10.5, 10}, true);
    const auto shadeAt = [&](int x) { return qGray(image.pixel(x, 9)); };
    constexpr int half = 191, quarter = 223;
    EXPECT_NEAR(shadeAt(10), quarter, 1);
    EXPECT_NEAR(shadeAt(11), half, 1);
    EXPECT_NEAR(shadeAt(12), half, 1);
    EXPECT_NEAR(shadeAt(13), quarter, 1);
    EXPECT_EQ(shadeAt(14), 255);
    EXPECT_NEAR(shadeAt(16), quarter, 1);
    EXPECT_NEAR(shadeAt(17), 239, 1);
    EXPECT_EQ(shadeAt(18), 255);
    EXPECT_NEAR(qGray(image.pixel(11, 10)), half, 1);
}

TEST(DashedLines, EndWhereTheyEnd) { expectAlike(grid(20, 70), dashes, 1, {10, 10}); }

TEST(DashedLines, KeepPhaseWidthAndOddPatterns) {
    expectAlike(grid(30, 90), {.color = Color::black(), .width = 4, .dash = {10, 6}, .dashPhase = 4}, 1, {5, 5});
    expectAlike(grid(30, 90), {.color = Color::black(), .width = 2.5, .dash = {8}, .dashPhase = -3}, 1, {5, 5});
    expectAlike(grid(30, 90), {.color = Color::black(), .width = 2, .dash = {7, 2, 1}}, 1.25, {5, 5});
}

TEST(DashedLines, LeaveOtherStrokesToThePainter) {
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    EXPECT_FALSE(drawDashedLines(painter, grid(20, 100), dashes)) << "without clipping";
    painter.setClipRect(0, 0, side, side);
    EXPECT_TRUE(drawDashedLines(painter, grid(20, 100), dashes));
    EXPECT_FALSE(drawDashedLines(painter, Path::rect({5, 5, 50, 50}), dashes));
    EXPECT_FALSE(drawDashedLines(painter, Path().addSegment({0, 0}, {50, 50}), dashes));
    EXPECT_FALSE(drawDashedLines(painter, Path().addSegment({50, 0}, {0, 0}), dashes));
    Stroke translucent = dashes;
    translucent.color = dashes.color.withAlpha(0.5);
    EXPECT_FALSE(drawDashedLines(painter, grid(20, 100), translucent));
    painter.rotate(30);
    EXPECT_FALSE(drawDashedLines(painter, grid(20, 100), dashes));
}

TEST(DashedLines, VeryLongLinesTakeNoTime) {
    const double far = std::numeric_limits<float>::max();
    const Path line = Path().addSegment({0, 10}, {far, 10}).addSegment({-far, 30}, {far, 30});
    EXPECT_EQ(drawn(line, dashes, 1, {}, true).size(), QSize(side, side));
}

}  // namespace
}  // namespace zor
