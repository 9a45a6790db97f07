#include "qt/LevelGradient.h"

#include <gtest/gtest.h>

#include <QLinearGradient>
#include <QPainter>
#include <QPicture>
#include <cmath>

#include "qt/QtConversions.h"

namespace zor {

namespace {

const Gradient fade{.start = {0, 10},
                    .end = {0, 90},
                    .stops = {{0, Color::rgb(0x0a6ed1).withAlpha(0.34)}, {1, Color::rgb(0x0a6ed1).withAlpha(0.03)}}};

/// As below the line of a plot.
Path hills() {
    Path area;
    area.moveTo({5, 95});
    for (int x = 5; x < 95; ++x) area.lineTo({x + 0.3, 40 + 30 * std::sin(x / 7.0) + x % 3});
    return area.lineTo({95, 95}).close();
}

QImage drawn(const QTransform& transform, bool byPainter) {
    QImage image(100, 100, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setTransform(transform);
    if (byPainter) {
        QLinearGradient gradient(toQt(fade.start), toQt(fade.end));
        for (const auto& stop : fade.stops) gradient.setColorAt(stop.location, toQt(stop.color));
        painter.fillPath(toQt(hills()), gradient);
    } else {
        EXPECT_TRUE(fillWithLevelGradient(painter, hills(), fade));
    }
    return image;
}

QImage drawnNothing() {
    QImage image(100, 100, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    return image;
}

}  // namespace

TEST(LevelGradient, LooksAsThePaintersGradient) {
    for (const QTransform& transform : {QTransform(), QTransform::fromScale(2, 2), QTransform(0.5, 0, 0, 0.75, 3, 4),
                                        QTransform(1, 0, 0, -1, 0, 100)}) {
        const QImage own = drawn(transform, false), painters = drawn(transform, true);
        for (int y = 0; y < 100; ++y) {
            for (int x = 0; x < 100; ++x) {
                EXPECT_NEAR(qRed(own.pixel(x, y)), qRed(painters.pixel(x, y)), 3) << x << ", " << y;
                EXPECT_NEAR(qBlue(own.pixel(x, y)), qBlue(painters.pixel(x, y)), 3) << x << ", " << y;
            }
        }
        EXPECT_NE(own, drawnNothing());
    }
}

TEST(LevelGradient, TheFirstAndTheLastColorGoOn) {
    QImage image(10, 100, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    const Gradient gradient{
        .start = {0, 20}, .end = {0, 60}, .stops = {{1, Color::rgb(0xff0000)}, {0, Color::rgb(0x0000ff)}}};
    ASSERT_TRUE(fillWithLevelGradient(painter, Path::rect({0, 0, 10, 100}), gradient));
    EXPECT_EQ(image.pixel(5, 0), 0xff0000ff);
    EXPECT_EQ(image.pixel(5, 19), 0xff0000ff);
    EXPECT_EQ(image.pixel(5, 60), 0xffff0000);
    EXPECT_EQ(image.pixel(5, 99), 0xffff0000);
    // Three quarters of the way; the middle of a pixel counts.
    EXPECT_EQ(image.pixel(5, 49), qRgb(188, 0, 67));
}

TEST(LevelGradient, LeavesAllElseToThePainter) {
    QImage image(10, 10, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    const Path area = Path::rect({0, 0, 10, 10});
    Gradient sideways = fade;
    sideways.end = {10, 90};
    Gradient around = fade;
    around.kind = Gradient::Kind::radial;
    Gradient without = fade;
    without.stops.clear();
    Gradient nowhere = fade;
    nowhere.end = nowhere.start;
    for (const Gradient& gradient : {sideways, around, without, nowhere}) {
        EXPECT_FALSE(fillWithLevelGradient(painter, area, gradient));
    }
    EXPECT_FALSE(fillWithLevelGradient(painter, Path::circle({5, 5}, 4), fade));
    painter.rotate(10);
    EXPECT_FALSE(fillWithLevelGradient(painter, area, fade));
    QPicture picture;
    QPainter onPicture(&picture);
    EXPECT_FALSE(fillWithLevelGradient(onPicture, area, fade));
    painter.end();
    EXPECT_EQ(image.pixel(5, 5), 0U);
}

}  // namespace zor
