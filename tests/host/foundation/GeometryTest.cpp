#include "host/foundation/Geometry.h"

#include <limits>

namespace zor {
namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

TEST(GeometryTest, PointOnLeftAndTopEdgeIsInside) {
    const Rect rect{10, 20, 30, 40};
    EXPECT_TRUE(pointInRect({10, 20}, rect));
    EXPECT_TRUE(pointInRect({10, 59.999}, rect));
    EXPECT_TRUE(pointInRect({39.999, 20}, rect));
}

TEST(GeometryTest, PointOnRightAndBottomEdgeIsOutside) {
    const Rect rect{10, 20, 30, 40};
    EXPECT_FALSE(pointInRect({40, 30}, rect));
    EXPECT_FALSE(pointInRect({20, 60}, rect));
    EXPECT_FALSE(pointInRect({9.999, 30}, rect));
    EXPECT_FALSE(pointInRect({20, 19.999}, rect));
}

TEST(GeometryTest, EmptyRectContainsNoPoint) {
    EXPECT_FALSE(pointInRect({0, 0}, {0, 0, 0, 10}));
    EXPECT_FALSE(pointInRect({5, 5}, {10, 10, -10, -10}));
    EXPECT_FALSE(pointInRect({5, 5}, {0, 0, nan, 10}));
    EXPECT_FALSE(pointInRect({nan, 5}, {0, 0, 10, 10}));
}

TEST(GeometryTest, EmptyIsZeroNegativeOrNaNSide) {
    EXPECT_TRUE((Rect{0, 0, 0, 1}).isEmpty());
    EXPECT_TRUE((Rect{0, 0, 1, -1}).isEmpty());
    EXPECT_TRUE((Rect{0, 0, nan, 1}).isEmpty());
    EXPECT_FALSE((Rect{0, 0, 0.5, infinity}).isEmpty());
}

TEST(GeometryTest, TouchingRectsDoNotIntersect) {
    const Rect rect{0, 0, 10, 10};
    EXPECT_FALSE(intersectsRect(rect, {10, 0, 10, 10}));
    EXPECT_FALSE(intersectsRect(rect, {0, 10, 10, 10}));
    EXPECT_FALSE(intersectsRect({10, 10, 5, 5}, rect));
    EXPECT_TRUE(intersectsRect(rect, {9.5, 9.5, 10, 10}));
}

TEST(GeometryTest, EmptyRectIntersectsNothing) {
    const Rect rect{0, 0, 10, 10};
    EXPECT_FALSE(intersectsRect(rect, {5, 5, 0, 4}));
    EXPECT_FALSE(intersectsRect({5, 5, 4, 0}, rect));
    EXPECT_FALSE(intersectsRect(rect, {nan, 5, 4, 4}));
    EXPECT_FALSE(intersectsRect({nan, 5, 4, 4}, rect));
}

TEST(GeometryTest, ContainsCountsEdgesButNoEmptyInnerRect) {
    const Rect outer{0, 0, 100, 50};
    EXPECT_TRUE(containsRect(outer, outer));
    EXPECT_TRUE(containsRect(outer, {60, 10, 40, 40}));
    EXPECT_FALSE(containsRect(outer, {60.5, 10, 40, 40}));
    EXPECT_FALSE(containsRect(outer, {-0.5, 10, 40, 40}));
    EXPECT_FALSE(containsRect(outer, {10, 10, 0, 10}));
    EXPECT_FALSE(containsRect({0, 0, 0, 0}, {0, 0, 1, 1}));
}

TEST(GeometryTest, IntersectionIsTheSharedAreaOrZero) {
    EXPECT_EQ(intersectionRect({0, 0, 10, 10}, {4, 6, 10, 10}), (Rect{4, 6, 6, 4}));
    EXPECT_EQ(intersectionRect({0, 0, 10, 10}, {2, 3, 4, 5}), (Rect{2, 3, 4, 5}));
    EXPECT_EQ(intersectionRect({0, 0, 10, 10}, {10, 0, 5, 5}), Rect{});
    EXPECT_EQ(intersectionRect({0, 0, 10, 10}, {20, 2, 5, 5}), Rect{});
}

TEST(GeometryTest, UnionSurroundsBothAndIgnoresEmptyOnes) {
    EXPECT_EQ(unionRect({0, 5, 10, 10}, {20, -5, 5, 5}), (Rect{0, -5, 25, 20}));
    EXPECT_EQ(unionRect({100, 100, 0, 5}, {1, 2, 3, 4}), (Rect{1, 2, 3, 4}));
    EXPECT_EQ(unionRect({1, 2, 3, 4}, {-100, -100, 5, -5}), (Rect{1, 2, 3, 4}));
    EXPECT_EQ(unionRect({7, 7, 0, 0}, {9, 9, 0, 0}), Rect{});
}

TEST(GeometryTest, InsetAndOffset) {
    EXPECT_EQ(insetRect({10, 20, 30, 40}, 2, 5), (Rect{12, 25, 26, 30}));
    EXPECT_EQ(insetRect({10, 20, 30, 40}, -1, -2), (Rect{9, 18, 32, 44}));
    EXPECT_EQ(offsetRect({10, 20, 30, 40}, -10, 0.5), (Rect{0, 20.5, 30, 40}));
}

TEST(GeometryTest, EdgesAndCenter) {
    const Rect rect{10, 20, 30, 41};
    EXPECT_EQ(rect.maxX(), 40);
    EXPECT_EQ(rect.maxY(), 61);
    EXPECT_EQ(rect.center(), (Point{25, 40.5}));
    EXPECT_EQ(rect.origin(), (Point{10, 20}));
    EXPECT_EQ(rect.size(), (Size{30, 41}));
}

TEST(GeometryTest, DrawableIsFiniteAndNotTooLarge) {
    EXPECT_TRUE(isDrawable({0, 0, 100'000, 100'000}));
    EXPECT_TRUE(isDrawable({1e9, -1e9, 1, 1}));
    EXPECT_FALSE(isDrawable({0, 0, 100'000.5, 10}));
    EXPECT_FALSE(isDrawable({0, 0, 10, 100'001}));
    EXPECT_FALSE(isDrawable({infinity, 0, 10, 10}));
    EXPECT_FALSE(isDrawable({0, nan, 10, 10}));
    EXPECT_FALSE(isDrawable({0, 0, nan, 10}));
}

}  // namespace
}  // namespace zor
