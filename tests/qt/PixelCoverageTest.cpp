#include "qt/PixelCoverage.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <QPicture>
#include <array>

namespace zor {

namespace {

constexpr QRgb black = 0xff000000;

using Area = std::vector<QPointF>;

Area box(double x, double y, double width, double height) {
    return {{x, y}, {x + width, y}, {x + width, y + height}, {x, y + height}};
}

/// The opacity of ten by ten pixels.
class Drawn {
public:
    explicit Drawn(const std::vector<Area>& areas, QRgb color = black, const QRect& clip = {}) {
        image_.fill(Qt::transparent);
        QPainter painter(&image_);
        if (!clip.isNull()) painter.setClipRect(clip);
        PixelCoverage coverage(painter, {-1000, -1000, 2000, 2000});
        for (const Area& area : areas) coverage.addArea(area);
        coverage.paint(painter, [color](int) { return color; });
    }

    int at(int x, int y) const { return qAlpha(image_.pixel(x, y)); }
    QRgb colorAt(int x, int y) const { return image_.pixel(x, y); }

private:
    QImage image_{10, 10, QImage::Format_ARGB32_Premultiplied};
};

}  // namespace

TEST(PixelCoverage, AWholePixelIsOpaqueAndAShareOfItAsOpaqueAsThat) {
    const Drawn drawn({box(2.25, 3.5, 3, 2)});
    EXPECT_EQ(drawn.at(3, 4), 255);
    EXPECT_EQ(drawn.at(1, 4), 0);
    EXPECT_EQ(drawn.at(2, 4), 191);
    EXPECT_EQ(drawn.at(5, 4), 64);
    EXPECT_EQ(drawn.at(6, 4), 0);
    EXPECT_EQ(drawn.at(3, 3), 128);
    EXPECT_EQ(drawn.at(3, 5), 128);
    EXPECT_EQ(drawn.at(2, 3), 96);
    EXPECT_EQ(drawn.at(3, 2), 0);
    EXPECT_EQ(drawn.at(3, 6), 0);
}

TEST(PixelCoverage, SlantedEdgesCutPixelsAsTheyPass) {
    // Below the diagonal of the picture; and a gentle slope that rises by one in four pixels.
    const Drawn diagonal({{{0, 0}, {10, 10}, {0, 10}}});
    for (const int at : {0, 4, 9}) EXPECT_EQ(diagonal.at(at, at), 128) << at;
    EXPECT_EQ(diagonal.at(3, 4), 255);
    EXPECT_EQ(diagonal.at(4, 3), 0);
    const Drawn slope({{{0, 5}, {4, 4}, {4, 5}}});
    EXPECT_EQ(slope.at(0, 4), 32);
    EXPECT_EQ(slope.at(1, 4), 96);
    EXPECT_EQ(slope.at(2, 4), 159);
    EXPECT_EQ(slope.at(3, 4), 223);
    EXPECT_EQ(slope.at(4, 4), 0);
}

TEST(PixelCoverage, EitherSenseIsInsideAndOverlapsAddUpToOne) {
    Area reversed = box(2, 2, 3, 3);
    std::ranges::reverse(reversed);
    EXPECT_EQ(Drawn({reversed}).at(3, 3), 255);
    const Drawn twice({box(2, 2, 3.5, 3), box(4, 2, 3.25, 3)}, 0x80000000);
    EXPECT_EQ(twice.at(3, 3), 128);
    EXPECT_EQ(twice.at(4, 3), 128);
    EXPECT_EQ(twice.at(5, 3), 128);
    EXPECT_EQ(twice.at(7, 3), 32);
}

TEST(PixelCoverage, ColorsArePremultiplied) {
    const Drawn drawn({box(0, 0, 0.5, 1), box(1, 0, 1, 1)}, 0x80402010);
    EXPECT_EQ(drawn.colorAt(1, 0), 0x80402010);
    EXPECT_EQ(drawn.colorAt(0, 0), 0x40201008);
}

TEST(PixelCoverage, WhatLiesOutsideCountsWhereItReachesIn) {
    const Drawn drawn({box(-500, -500, 504.5, 503.5), {{-4, 20}, {4, 4}, {20, 12}}});
    EXPECT_EQ(drawn.at(0, 0), 255);
    EXPECT_EQ(drawn.at(3, 2), 255);
    EXPECT_EQ(drawn.at(4, 0), 128);
    EXPECT_EQ(drawn.at(0, 3), 128);
    EXPECT_EQ(drawn.at(5, 0), 0);
    EXPECT_EQ(drawn.at(9, 9), 255);
    EXPECT_EQ(drawn.at(0, 9), 0);
    // Neither to the left nor to the right of the picture, nor above or below.
    const Drawn outside({box(-5, 0, 5, 10), box(10, 0, 5, 10), box(0, -5, 10, 5), box(0, 10, 10, 5)});
    for (int i = 0; i < 10; ++i) EXPECT_EQ(outside.at(i, i) + outside.at(9 - i, i), 0) << i;
}

TEST(PixelCoverage, OnlyWhatTheClipLetsThroughIsPainted) {
    const Drawn drawn({box(0, 0, 10, 10)}, black, QRect(3, 4, 2, 3));
    EXPECT_EQ(drawn.at(3, 4), 255);
    EXPECT_EQ(drawn.at(4, 6), 255);
    EXPECT_EQ(drawn.at(2, 4) + drawn.at(5, 4) + drawn.at(3, 3) + drawn.at(3, 7), 0);
}

TEST(PixelCoverage, TheColorIsThatOfTheRow) {
    QImage image(4, 40, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    PixelCoverage coverage(painter, {0, 5, 4, 30});
    coverage.addArea(box(0, 0, 4, 40));
    coverage.paint(painter, [](int row) { return black + static_cast<QRgb>(row); });
    painter.end();
    EXPECT_EQ(image.pixel(1, 4), 0U);
    for (const int row : {5, 20, 21, 34}) EXPECT_EQ(image.pixel(1, row), black + static_cast<QRgb>(row));
    EXPECT_EQ(image.pixel(1, 35), 0U);
}

TEST(PixelCoverage, IsForImagesOnly) {
    QImage image(4, 4, QImage::Format_ARGB32_Premultiplied);
    QPainter onImage(&image);
    EXPECT_TRUE(PixelCoverage::isPossible(onImage));
    QPicture picture;
    QPainter onPicture(&picture);
    EXPECT_FALSE(PixelCoverage::isPossible(onPicture));
}

}  // namespace zor
