#include "qt/QtDrawingContext.h"

#include <gtest/gtest.h>

#include <limits>

#include "qt/QtFonts.h"
#include "tests/qt/Pixels.h"

namespace zor {

using test::inkOf;
using test::picture;

namespace {

constexpr QRgb clear = 0;
const Color red = Color::rgb(0xFF0000);

QRgb opaque(std::uint32_t rgb) {
    return 0xFF000000 | rgb;
}

}  // namespace

TEST(QtDrawingContext, ARectangleFillsExactlyItsPixels) {
    const QImage image = picture({20, 20}, [](DrawingContext& context) { context.fillRect({3, 5, 10, 4}, red); });
    EXPECT_EQ(inkOf(image), QRect(3, 5, 10, 4));
    EXPECT_EQ(image.pixel(3, 5), opaque(0xFF0000));
    EXPECT_EQ(image.pixel(2, 5), clear);
    EXPECT_EQ(image.pixel(13, 8), clear);
}

TEST(QtDrawingContext, TransformationsAndClipAreSavedTogether) {
    const QImage image = picture({40, 40}, [](DrawingContext& context) {
        context.save();
        context.translate(10, 10);
        context.scale(2, 2);
        context.clipToRect({0, 0, 5, 5});
        context.fillRect({0, 0, 100, 100}, red);
        context.restore();
        context.restore();
        context.fillRect({30, 30, 2, 2}, Color::black());
    });
    EXPECT_EQ(image.pixel(10, 10), opaque(0xFF0000));
    EXPECT_EQ(image.pixel(19, 19), opaque(0xFF0000));
    EXPECT_EQ(image.pixel(20, 19), clear);
    EXPECT_EQ(image.pixel(31, 31), opaque(0));
}

TEST(QtDrawingContext, RotationIsClockwise) {
    const QImage image = picture({40, 40}, [](DrawingContext& context) {
        context.translate(20, 20);
        context.rotate(90);
        context.fillRect({0, 0, 10, 4}, red);
    });
    EXPECT_EQ(inkOf(image), QRect(16, 20, 4, 10));
}

TEST(QtDrawingContext, AClipAtFractionsKeepsAntialiasedEdgesWithinIt) {
    const QImage image = picture({20, 20}, [](DrawingContext& context) {
        context.clipToRect({4.5, 4.5, 8, 8});
        context.fillRect({4.5, 4.5, 8, 8}, red);
    });
    EXPECT_EQ(image.pixel(5, 5), opaque(0xFF0000));
    EXPECT_NEAR(qAlpha(image.pixel(4, 8)), 128, 2);
    EXPECT_NEAR(qAlpha(image.pixel(12, 8)), 128, 2);
    EXPECT_EQ(image.pixel(3, 8), clear);
}

TEST(QtDrawingContext, AClipPathKeepsWhatIsOutsideIt) {
    const QImage image = picture({40, 40}, [](DrawingContext& context) {
        context.clipToPath(Path::circle({20, 20}, 10));
        context.fillRect({0, 0, 40, 40}, red);
    });
    EXPECT_EQ(image.pixel(20, 20), opaque(0xFF0000));
    EXPECT_EQ(image.pixel(11, 11), clear);
}

TEST(QtDrawingContext, TheInsideOfAPathFollowsTheWindingNumber) {
    const QImage image = picture({40, 40}, [](DrawingContext& context) {
        context.fillPath(Path().addRect({5, 5, 30, 30}).addRect({15, 15, 10, 10}), red);
    });
    EXPECT_EQ(image.pixel(20, 20), opaque(0xFF0000));
}

TEST(QtDrawingContext, ColoursMixByTheirAlpha) {
    const QImage image = picture({4, 4}, [](DrawingContext& context) {
        context.fillRect({0, 0, 4, 4}, Color::white());
        context.fillRect({0, 0, 4, 4}, Color::black().withAlpha(0.5));
    });
    EXPECT_NEAR(qRed(image.pixel(2, 2)), 127, 1);
}

TEST(QtDrawingContext, ALinearGradientRunsFromStartToEnd) {
    const QImage image = picture({100, 10}, [](DrawingContext& context) {
        Gradient gradient;
        gradient.end = {100, 0};
        gradient.stops = {{1, Color::white()}, {0, Color::black()}};
        context.fillPathWithGradient(Path::rect({0, 0, 100, 10}), gradient);
    });
    EXPECT_LT(qRed(image.pixel(1, 5)), 8);
    EXPECT_NEAR(qRed(image.pixel(50, 5)), 128, 4);
    EXPECT_GT(qRed(image.pixel(98, 5)), 247);
}

TEST(QtDrawingContext, AGradientWithoutStopsDrawsNothing) {
    const QImage image = picture({10, 10}, [](DrawingContext& context) {
        context.fillPathWithGradient(Path::rect({0, 0, 10, 10}), Gradient());
    });
    EXPECT_TRUE(inkOf(image).isEmpty());
}

TEST(QtDrawingContext, DashesCountInPointsWhateverTheWidth) {
    const QImage image = picture({40, 10}, [](DrawingContext& context) {
        context.strokePath(Path().addSegment({0, 5}, {40, 5}),
                           {.color = red, .width = 4, .dash = {10, 6}, .dashPhase = 4});
    });
    // Six points are left of the first dash; then a gap of six, a dash of ten, a gap of six.
    EXPECT_EQ(qAlpha(image.pixel(5, 5)), 255);
    EXPECT_EQ(qAlpha(image.pixel(6, 5)), 0);
    EXPECT_EQ(qAlpha(image.pixel(11, 5)), 0);
    EXPECT_EQ(qAlpha(image.pixel(12, 5)), 255);
    EXPECT_EQ(qAlpha(image.pixel(21, 5)), 255);
    EXPECT_EQ(qAlpha(image.pixel(22, 5)), 0);
}

TEST(QtDrawingContext, AnOddDashPatternRunsOn) {
    const QImage image = picture({40, 4}, [](DrawingContext& context) {
        context.strokePath(Path().addSegment({0, 2}, {40, 2}), {.color = red, .width = 2, .dash = {8}});
    });
    EXPECT_EQ(qAlpha(image.pixel(4, 2)), 255);
    EXPECT_EQ(qAlpha(image.pixel(12, 2)), 0);
    EXPECT_EQ(qAlpha(image.pixel(20, 2)), 255);
}

TEST(QtDrawingContext, WhatHasNoSizeOrIsNoNumberDrawsNothing) {
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    const QImage image = picture({20, 20}, [](DrawingContext& context) {
        context.strokePath(Path::rect({5, 5, 5, 5}), {.color = red, .width = 0});
        context.strokePath(Path::rect({5, 5, 5, 5}), {.color = red, .width = nan});
        context.strokePolyline({{0, 0}, {20, 20}}, {.color = red, .width = -1});
        context.strokePolyline({{3, 3}}, {.color = red});
        context.fillRect({2, 2, nan, 5}, red);
        context.fillRect({nan, 2, 5, 5}, red);
        context.fillRect({8, 8, -4, 4}, red);
        context.fillPath({}, red);
        context.drawText("text", {0, 0, 20, 20}, Font{.size = nan}, red);
    });
    EXPECT_TRUE(inkOf(image).isEmpty());
}

struct Alignment {
    TextAlignment across;
    VerticalAlignment down;
    double left, top;
};

class QtDrawingContextText : public testing::TestWithParam<Alignment> {};

TEST_P(QtDrawingContextText, LinesStandInTheRectangleAsAligned) {
    const auto& [across, down, left, top] = GetParam();
    const Font font{.size = 20};
    const Size wide = QtFonts::shared().sizeOfText("HHH", font), narrow = QtFonts::shared().sizeOfText("H", font);
    const Rect box{10, 10, wide.width + 40, 2 * wide.height + 40};
    const auto draw = [&](const char* text) {
        return inkOf(picture({200, 150}, [&](DrawingContext& context) {
            context.drawText(text, box, font, Color::black(), across, down);
        }));
    };
    const FontMetrics metrics = QtFonts::shared().metrics(font);
    const QRect ink = draw("HHH\nH");
    const double capTop = 10 + 40 * top + metrics.ascent - metrics.capHeight;
    EXPECT_NEAR(ink.top(), capTop, 1.5);
    EXPECT_NEAR(ink.bottom() + 1, 10 + 40 * top + wide.height + metrics.ascent, 1.5);
    EXPECT_NEAR(ink.left(), 10 + 40 * left + 1.5, 2);
    const QRect second = draw("\nH");
    EXPECT_NEAR(second.left(), 10 + (box.width - narrow.width) * left + 1.5, 2);
}

INSTANTIATE_TEST_SUITE_P(All, QtDrawingContextText,
                         testing::Values(Alignment{TextAlignment::left, VerticalAlignment::top, 0, 0},
                                         Alignment{TextAlignment::center, VerticalAlignment::center, 0.5, 0.5},
                                         Alignment{TextAlignment::right, VerticalAlignment::bottom, 1, 1}));

TEST(QtDrawingContext, TextTooWideIsDrawnAllTheSame) {
    const QImage image = picture({200, 40}, [](DrawingContext& context) {
        context.drawText("HHHHHH", {90, 5, 20, 20}, Font{.size = 20}, Color::black(), TextAlignment::center);
    });
    const QRect ink = inkOf(image);
    EXPECT_LT(ink.left(), 70);
    EXPECT_GT(ink.right(), 130);
}

}  // namespace zor
