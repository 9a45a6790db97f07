#include <cmath>

#include "host/views/Path.h"

namespace zor {
namespace {

std::string verbs(const Path& path) {
    std::string verbs;
    for (const auto& element : path.elements()) verbs += "MLCZ"[static_cast<int>(element.verb)];
    return verbs;
}

Point endOf(const Path::Element& element) {
    return element.points[Path::pointCount(element.verb) - 1];
}

void expectNear(Point actual, Point expected) {
    EXPECT_NEAR(actual.x, expected.x, 1e-9);
    EXPECT_NEAR(actual.y, expected.y, 1e-9);
}

/// The point of a cubic curve at t.
Point onCurve(Point p0, const Path::Element& curve, double t) {
    const double u = 1 - t;
    const auto mix = [&](double a, double b, double c, double d) {
        return u * u * u * a + 3 * u * u * t * b + 3 * u * t * t * c + t * t * t * d;
    };
    const auto& p = curve.points;
    return {mix(p0.x, p[0].x, p[1].x, p[2].x), mix(p0.y, p[0].y, p[1].y, p[2].y)};
}

TEST(PathTest, KeepsWhatIsAdded) {
    Path path;
    EXPECT_TRUE(path.isEmpty());
    path.moveTo({1, 2}).lineTo({3, 4}).curveTo({5, 6}, {7, 8}, {9, 10}).close();
    EXPECT_EQ(verbs(path), "MLCZ");
    EXPECT_EQ(path.elements()[2].points[1], (Point{7, 8}));
    EXPECT_EQ(path.bounds(), (Rect{1, 2, 8, 8}));
    EXPECT_EQ(Path().bounds(), (Rect{0, 0, 0, 0}));
}

TEST(PathTest, ALineWithoutABeginningBegins) {
    EXPECT_EQ(verbs(Path().lineTo({1, 2}).lineTo({3, 4})), "ML");
    EXPECT_EQ(verbs(Path().close()), "");
}

TEST(PathTest, ARectangleIsFourCornersClosed) {
    const Path path = Path::rect({1, 2, 10, 20});
    EXPECT_EQ(verbs(path), "MLLLZ");
    EXPECT_EQ(endOf(path.elements()[0]), (Point{1, 2}));
    EXPECT_EQ(endOf(path.elements()[1]), (Point{11, 2}));
    EXPECT_EQ(endOf(path.elements()[2]), (Point{11, 22}));
    EXPECT_EQ(endOf(path.elements()[3]), (Point{1, 22}));
}

TEST(PathTest, AnArcRunsClockwiseOnScreen) {
    const Path path = Path().arc({10, 10}, 5, 0, 90);
    EXPECT_EQ(verbs(path), "MC");
    expectNear(endOf(path.elements()[0]), {15, 10});
    expectNear(endOf(path.elements()[1]), {10, 15});
    expectNear(path.elements()[1].points[0], {15, 10 + 5 * 0.5522847498307936});
}

TEST(PathTest, AnArcStaysOnItsCircle) {
    const Path path = Path().arc({10, 20}, 100, -225, 45);
    EXPECT_EQ(verbs(path), "MCCC");
    Point from = endOf(path.elements()[0]);
    for (std::size_t i = 1; i < path.elements().size(); ++i) {
        for (const double t : {0.1, 0.25, 0.5, 0.75, 0.9}) {
            const Point point = onCurve(from, path.elements()[i], t);
            EXPECT_NEAR(std::hypot(point.x - 10, point.y - 20), 100, 0.03);
        }
        from = endOf(path.elements()[i]);
    }
    expectNear(from, {10 + 100 * std::sqrt(0.5), 20 + 100 * std::sqrt(0.5)});
}

TEST(PathTest, AnArcMayRunBackwardsAndAtMostOnce) {
    expectNear(endOf(Path().arc({0, 0}, 1, 90, 0).elements().back()), {1, 0});
    EXPECT_EQ(verbs(Path().arc({0, 0}, 1, 0, 36000)), "MCCCC");
    EXPECT_EQ(verbs(Path().arc({0, 0}, 1, 0, INFINITY)), "");
}

TEST(PathTest, AnArcIsJoinedToTheOpenSubpathOnly) {
    EXPECT_EQ(verbs(Path().moveTo({0, 0}).arc({10, 10}, 5, 0, 90)), "MLC");
    EXPECT_EQ(verbs(Path::rect({0, 0, 1, 1}).arc({10, 10}, 5, 0, 90)), "MLLLZMC");
}

TEST(PathTest, AnOvalTouchesItsRectangle) {
    const Path path = Path::oval({0, 0, 20, 10});
    EXPECT_EQ(verbs(path), "MCCCCZ");
    EXPECT_EQ(endOf(path.elements()[0]), (Point{20, 5}));
    EXPECT_EQ(endOf(path.elements()[1]), (Point{10, 10}));
    EXPECT_EQ(endOf(path.elements()[2]), (Point{0, 5}));
    EXPECT_EQ(endOf(path.elements()[3]), (Point{10, 0}));
    EXPECT_EQ(endOf(path.elements()[4]), (Point{20, 5}));
    EXPECT_EQ(path.bounds(), (Rect{0, 0, 20, 10}));
    EXPECT_EQ(Path::circle({5, 5}, 3).bounds(), (Rect{2, 2, 6, 6}));
}

TEST(PathTest, ARoundedRectangleBoundsItsRadius) {
    const Path path = Path::roundedRect({0, 0, 20, 10}, 3);
    EXPECT_EQ(verbs(path), "MLCLCLCLCZ");
    EXPECT_EQ(endOf(path.elements()[0]), (Point{3, 0}));
    EXPECT_EQ(endOf(path.elements()[1]), (Point{17, 0}));
    EXPECT_EQ(endOf(path.elements()[2]), (Point{20, 3}));
    EXPECT_EQ(path.bounds(), (Rect{0, 0, 20, 10}));
    EXPECT_EQ(endOf(Path::roundedRect({0, 0, 20, 10}, 100).elements()[0]), (Point{5, 0}));
    EXPECT_EQ(verbs(Path::roundedRect({0, 0, 20, 10}, 0)), "MLLLZ");
}

}  // namespace
}  // namespace zor
