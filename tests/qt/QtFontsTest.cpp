#include "qt/QtFonts.h"

#include <gmock/gmock.h>

#include <QFontDatabase>
#include <limits>

#include "host/views/DrawingContext.h"
#include "tests/qt/Pixels.h"

namespace zor {

using test::inkOf;
using test::picture;

TEST(QtFonts, TextGrowsInProportionToItsSize) {
    auto& fonts = QtFonts::shared();
    const Size unit = fonts.sizeOfText("Wind 21.5 °C", {.size = 1});
    for (const double size : {7.0, 12.0, 16.5, 76.8, 200.0}) {
        const Size measured = fonts.sizeOfText("Wind 21.5 °C", {.size = size});
        EXPECT_NEAR(measured.width, unit.width * size, 1e-6) << size;
        EXPECT_NEAR(measured.height, unit.height * size, 1e-6) << size;
    }
}

TEST(QtFonts, ALineIsAscentAndDescentHigh) {
    const Font font{.size = 24};
    const FontMetrics metrics = QtFonts::shared().metrics(font);
    EXPECT_GT(metrics.capHeight, 12);
    EXPECT_GT(metrics.ascent, metrics.capHeight);
    EXPECT_GT(metrics.descent, 0);
    EXPECT_DOUBLE_EQ(QtFonts::shared().sizeOfText("A", font).height, metrics.ascent + metrics.descent);
    EXPECT_DOUBLE_EQ(QtFonts::shared().sizeOfText("A\nB", font).height, 2 * (metrics.ascent + metrics.descent));
}

TEST(QtFonts, SpacesCountAndNothingIsNarrow) {
    auto& fonts = QtFonts::shared();
    EXPECT_GT(fonts.sizeOfText("a ", {}).width, fonts.sizeOfText("a", {}).width);
    EXPECT_EQ(fonts.sizeOfText("", {}).width, 0);
    EXPECT_GT(fonts.sizeOfText("", {}).height, 0);
}

TEST(QtFonts, ASizeThatIsNoneTakesNoRoom) {
    for (const double size : {0.0, -3.0, std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_EQ(QtFonts::shared().sizeOfText("text", {.size = size}), Size{});
        EXPECT_EQ(QtFonts::shared().metrics({.size = size}).ascent, 0);
    }
}

TEST(QtFonts, TheInkOfTextLiesWhereItWasMeasured) {
    // An H has its stems near both ends of its advance and stands on the base line.
    const Font font{.size = 76.8, .bold = true};
    const FontMetrics metrics = QtFonts::shared().metrics(font);
    const Size size = QtFonts::shared().sizeOfText("HH", font);
    const QRect ink = inkOf(picture({200, 120}, [&](DrawingContext& context) {
        context.drawText("HH", {20, 10, 0, 0}, font, Color::black());
    }));
    EXPECT_NEAR(ink.top(), 10 + metrics.ascent - metrics.capHeight, 1.5);
    EXPECT_NEAR(ink.bottom() + 1, 10 + metrics.ascent, 1.5);
    EXPECT_GE(ink.left(), 20);
    EXPECT_LT(ink.left(), 20 + 8);
    EXPECT_LE(ink.right() + 1, 20 + size.width);
    EXPECT_GT(ink.right() + 1, 20 + size.width - 8);
}

TEST(QtFonts, TheWishedFamilyFallsBackToOneThatIsThere) {
    const Size wished = QtFonts::shared().sizeOfText("Helvetica", {.family = "Helvetica Neue", .size = 20});
    for (const char* family : {"Helvetica Neue", "Helvetica", "Nimbus Sans", "Liberation Sans", "Arimo"}) {
        if (!QFontDatabase::hasFamily(family)) continue;
        EXPECT_EQ(wished, QtFonts::shared().sizeOfText("Helvetica", {.family = family, .size = 20}));
        return;
    }
}

TEST(QtFonts, AFileThatIsNoFontIsNamed) {
    const Status status = QtFonts::shared().activate("/nowhere/none.ttf");
    ASSERT_FALSE(status);
    EXPECT_THAT(status.error().message, testing::HasSubstr("/nowhere/none.ttf"));
}

}  // namespace zor
