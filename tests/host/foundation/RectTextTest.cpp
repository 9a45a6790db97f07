#include <gmock/gmock.h>

#include <bit>
#include <clocale>
#include <cmath>
#include <limits>
#include <random>

#include "host/foundation/Geometry.h"

namespace zor {
namespace {

TEST(RectTextTest, WritesWholeNumbersWithoutFraction) {
    EXPECT_EQ(stringFromRect({10, 12, 480, 360}), "{{10, 12}, {480, 360}}");
    EXPECT_EQ(stringFromRect({}), "{{0, 0}, {0, 0}}");
    EXPECT_EQ(stringFromRect({-100000, 1000000, 20, 0}), "{{-100000, 1000000}, {20, 0}}");
    EXPECT_EQ(stringFromPoint({1, -2}), "{1, -2}");
    EXPECT_EQ(stringFromSize({300, 75}), "{300, 75}");
}

TEST(RectTextTest, WritesTheShortestDigitsThatReadBackTheSame) {
    EXPECT_EQ(stringFromRect({0.1, 0.5, 1.0 / 3, 100.25}), "{{0.1, 0.5}, {0.3333333333333333, 100.25}}");
    EXPECT_EQ(shortestNumber(0.1 + 0.2), "0.30000000000000004");
    EXPECT_EQ(shortestNumber(123456.789), "123456.789");
}

TEST(RectTextTest, WritesSpecialNumbers) {
    EXPECT_EQ(shortestNumber(-0.0), "-0");
    EXPECT_EQ(shortestNumber(std::nan("")), "nan");
    EXPECT_EQ(shortestNumber(-std::nan("")), "nan");
    EXPECT_EQ(shortestNumber(std::numeric_limits<double>::infinity()), "inf");
    EXPECT_EQ(shortestNumber(-std::numeric_limits<double>::infinity()), "-inf");
    EXPECT_EQ(shortestNumber(1e300), "1e+300");
    EXPECT_EQ(shortestNumber(5e-324), "5e-324");
}

TEST(RectTextTest, EveryNumberReadsBackWithTheSameBits) {
    std::mt19937_64 random(20240601);
    for (int count = 0; count < 20'000; ++count) {
        const double value = std::bit_cast<double>(random());
        if (std::isnan(value)) continue;
        const double back = pointFromString(stringFromPoint({value, 0})).x;
        ASSERT_EQ(std::bit_cast<std::uint64_t>(back), std::bit_cast<std::uint64_t>(value)) << shortestNumber(value);
    }
    EXPECT_TRUE(std::signbit(pointFromString(stringFromPoint({-0.0, 0})).x));
    EXPECT_TRUE(std::isnan(pointFromString(stringFromPoint({std::nan(""), 0})).x));
}

TEST(RectTextTest, ReadsFreeSpacesAndExponents) {
    EXPECT_EQ(rectFromString("{{10, 12}, {480, 360}}"), (Rect{10, 12, 480, 360}));
    EXPECT_EQ(rectFromString("{{10,12},{480,360}}"), (Rect{10, 12, 480, 360}));
    EXPECT_EQ(rectFromString(" { {\t1.5e2 , -12.25}\n,{ 4.8E+2,36e1 } } "), (Rect{150, -12.25, 480, 360}));
    EXPECT_EQ(pointFromString("{ +3, .5 }"), (Point{3, 0.5}));
    EXPECT_EQ(sizeFromString("{1e3,2}"), (Size{1000, 2}));
}

TEST(RectTextTest, ReadsTheNamedForm) {
    EXPECT_EQ(rectFromString("{x = 1; y = 2; width = 3; height = 4}"), (Rect{1, 2, 3, 4}));
    EXPECT_EQ(rectFromString("{x=1;y=-2.5;width=3e1;height=4;}"), (Rect{1, -2.5, 30, 4}));
    EXPECT_EQ(rectFromString("{width = 3; height = 4; x = 1; y = 2}"), (Rect{1, 2, 3, 4}));
    EXPECT_EQ(pointFromString("{x = 1; y = 2}"), (Point{1, 2}));
    EXPECT_EQ(sizeFromString("{width = 3; height = 4}"), (Size{3, 4}));
}

class UnreadableRectText : public testing::TestWithParam<const char*> {};

TEST_P(UnreadableRectText, GivesZeros) {
    EXPECT_EQ(rectFromString(GetParam()), Rect{});
    EXPECT_EQ(pointFromString(GetParam()), Point{});
    EXPECT_EQ(sizeFromString(GetParam()), Size{});
}

INSTANTIATE_TEST_SUITE_P(RectTextTest, UnreadableRectText,
                         testing::Values("", " ", "{", "}", "10, 12, 480, 360", "{10, 12}, {480, 360}",
                                         "{{10, 12}, {480, 360}", "{{10, 12}, {480}}", "{{10, 12} {480, 360}}",
                                         "{{a, 12}, {480, 360}}", "{{0x10, 12}, {480, 360}}",
                                         "{{10, 12}, {480, 360}} more", "{{1, 2}, {3, 1e999}}", "{{+-1, 2}, {3, 4}}",
                                         "{x = 1; y = 2; width = 3}", "{x = 1; x = 2; width = 3; height = 4}",
                                         "{x = 1, y = 2, width = 3, height = 4}", "{x 1; y 2; width 3; height 4}",
                                         "{x = ; y = 2; width = 3; height = 4}"));

TEST(RectTextTest, LongHostileTextEnds) {
    EXPECT_EQ(rectFromString(std::string(1'000'000, '{')), Rect{});
    EXPECT_EQ(rectFromString(std::string(1'000'000, ' ')), Rect{});
    EXPECT_EQ(rectFromString("{{" + std::string(1'000'000, '1') + ", 2}, {3, 4}}"), Rect{});
    EXPECT_EQ(pointFromString("{0." + std::string(1'000'000, '0') + "1, 2}"), Point{});
}

TEST(RectTextTest, IgnoresTheLocale) {
    const std::string before = std::setlocale(LC_ALL, nullptr);
    if (!std::setlocale(LC_ALL, "de_DE.UTF-8")) GTEST_SKIP() << "no locale with a decimal comma here";
    EXPECT_EQ(stringFromPoint({0.5, 1000}), "{0.5, 1000}");
    EXPECT_EQ(pointFromString("{0.5, 1000}"), (Point{0.5, 1000}));
    std::setlocale(LC_ALL, before.c_str());
}

}  // namespace
}  // namespace zor
