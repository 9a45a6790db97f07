#include "qt/QtImages.h"

#include <gmock/gmock.h>

#include <QBuffer>

#include "host/views/DrawingContext.h"
#include "tests/qt/Pixels.h"

namespace zor {

using test::picture;

namespace {

std::shared_ptr<const Bytes> encoded(const QImage& image, const char* format) {
    QByteArray data;
    QBuffer buffer(&data);
    image.save(&buffer, format);
    return std::make_shared<const Bytes>(data.begin(), data.end());
}

QImage blue(int width, int height, int dotsPerMetre = 0) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::blue);
    image.setDotsPerMeterX(dotsPerMetre);
    image.setDotsPerMeterY(dotsPerMetre);
    return image;
}

std::shared_ptr<const Bytes> bytes(std::string_view text) {
    return std::make_shared<const Bytes>(text.begin(), text.end());
}

QImage drawn(std::shared_ptr<const Bytes> data) {
    return picture({40, 40}, [&](DrawingContext& context) {
        context.drawImage(*Image::withData(data, {20, 10}), {10, 10, 20, 10});
    });
}

}  // namespace

TEST(QtImages, APictureFillsItsRectangle) {
    for (const char* format : {"PNG", "BMP"}) {
        const QImage image = drawn(encoded(blue(4, 4), format));
        EXPECT_EQ(test::inkOf(image), QRect(10, 10, 20, 10)) << format;
        EXPECT_EQ(image.pixel(20, 15), qRgb(0, 0, 255)) << format;
    }
}

TEST(QtImages, WithoutReadableDataItIsPlainGrey) {
    for (const auto& data : {std::shared_ptr<const Bytes>(), bytes(""), bytes("no picture"), bytes("<svg")}) {
        const QImage image = drawn(data);
        EXPECT_EQ(test::inkOf(image), QRect(10, 10, 20, 10));
        EXPECT_EQ(image.pixel(20, 15), qRgb(0x80, 0x80, 0x80));
    }
}

TEST(QtImages, NewDataAtAnOldAddressIsReadAnew) {
    // The cache knows data by its address and must notice that the owner is another.
    for (int i = 0; i < 50; ++i) {
        QImage image = blue(2, 2);
        image.fill(QColor(i, 2 * i, 3 * i));
        EXPECT_EQ(drawn(encoded(image, "PNG")).pixel(20, 15), qRgb(i, 2 * i, 3 * i));
    }
}

TEST(QtImages, AMuchReducedPictureIsAveraged) {
    QImage stripes(400, 400, QImage::Format_RGB32);
    for (int y = 0; y < 400; ++y) {
        for (int x = 0; x < 400; ++x) stripes.setPixel(x, y, x % 20 == 0 ? qRgb(255, 255, 255) : qRgb(0, 0, 0));
    }
    const QImage image = drawn(encoded(stripes, "PNG"));
    for (int x = 12; x < 28; ++x) EXPECT_NEAR(qRed(image.pixel(x, 15)), 255 / 20, 6) << x;
}

TEST(QtImages, TheSizeIsInPointsAtTheFilesOwnResolution) {
    auto& images = QtImages::shared();
    EXPECT_EQ(*images.sizeOfData(*encoded(blue(200, 100, 5669), "JPG")), (Size{100, 50}));
    const Size twice = *images.sizeOfData(*encoded(blue(200, 100, 5669), "PNG"));
    EXPECT_NEAR(twice.width, 100, 0.01);
    EXPECT_NEAR(twice.height, 50, 0.01);
    // No resolution stated: a pixel is a point.
    Bytes silent = *encoded(blue(200, 100, 5669), "PNG");
    constexpr std::string_view type = "pHYs";
    const auto chunk = std::ranges::search(silent, type).begin() - 4;
    silent.erase(chunk, chunk + 21);
    EXPECT_EQ(*images.sizeOfData(silent), (Size{200, 100}));
}

TEST(QtImages, OtherDataIsAnError) {
    EXPECT_FALSE(QtImages::shared().sizeOfData(*bytes("no picture")));
    EXPECT_FALSE(QtImages::shared().sizeOfData({}));
}

TEST(QtImages, VectorPicturesAreRead) {
    const auto svg = bytes(R"(<svg xmlns="http://www.w3.org/2000/svg" width="40" height="20" viewBox="0 0 40 20">)"
                           R"(<rect width="20" height="20" fill="#00ff00"/></svg>)");
    if (!QtImages::shared().sizeOfData(*svg)) GTEST_SKIP();
    EXPECT_EQ(*QtImages::shared().sizeOfData(*svg), (Size{40, 20}));
    EXPECT_EQ(test::inkOf(drawn(svg)), QRect(10, 10, 10, 10));
}

}  // namespace zor
