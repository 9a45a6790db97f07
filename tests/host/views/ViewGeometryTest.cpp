#include "host/views/Window.h"
#include "tests/host/views/ProbeView.h"

namespace zor {
namespace {

class ViewGeometry : public testing::Test {
protected:
    ProbeView::Notes notes;
    std::shared_ptr<ProbeView> root = makeProbe("root", {10, 20, 200, 100}, notes);
    std::shared_ptr<ProbeView> lower = makeProbe("lower", {5, 5, 100, 50}, notes);
    std::shared_ptr<ProbeView> upper = makeProbe("upper", {50, 5, 100, 50}, notes);
    std::shared_ptr<ProbeView> leaf = makeProbe("leaf", {40, 0, 100, 10}, notes);

    void SetUp() override {
        root->addSubview(lower);
        root->addSubview(upper);
        lower->addSubview(leaf);
    }

    std::string hit(Point point) {
        View* const view = root->hitTest(point);
        return view ? static_cast<ProbeView*>(view)->name : "";
    }
};

TEST_F(ViewGeometry, HitsTheTopmostView) {
    EXPECT_EQ(hit({16, 60}), "lower");
    EXPECT_EQ(hit({70, 60}), "upper");
    EXPECT_EQ(hit({57, 30}), "leaf");
    EXPECT_EQ(hit({61, 30}), "upper");
    EXPECT_EQ(hit({12, 22}), "root");
    EXPECT_EQ(hit({9, 22}), "");
}

TEST_F(ViewGeometry, LeftAndTopEdgesAreInsideRightAndBottomOnesOutside) {
    EXPECT_EQ(hit({15, 25}), "lower");
    EXPECT_EQ(hit({14.5, 25}), "root");
    EXPECT_EQ(hit({15, 74.5}), "lower");
    EXPECT_EQ(hit({15, 75}), "root");
    EXPECT_EQ(hit({209.5, 119.5}), "root");
    EXPECT_EQ(hit({210, 119.5}), "");
    EXPECT_EQ(hit({209.5, 120}), "");
}

TEST_F(ViewGeometry, HiddenViewsAreNotHit) {
    upper->setHidden(true);
    EXPECT_EQ(hit({70, 60}), "lower");
    lower->setHidden(true);
    EXPECT_EQ(hit({57, 30}), "root");
    root->setHidden(true);
    EXPECT_EQ(hit({57, 30}), "");
}

TEST_F(ViewGeometry, NothingBeyondAClippingParentIsHit) {
    upper->setHidden(true);
    EXPECT_EQ(hit({114, 30}), "leaf");
    EXPECT_EQ(hit({116, 30}), "root");
    lower->clips = false;
    EXPECT_EQ(hit({116, 30}), "leaf");
    EXPECT_EQ(hit({116, 50}), "root");
}

TEST_F(ViewGeometry, AnEmptyViewIsNeverHit) {
    leaf->setFrame({40, 0, 0, 10});
    EXPECT_EQ(hit({55, 25}), "lower");
}

TEST_F(ViewGeometry, ConvertsToAndFromWindowCoordinates) {
    Window window;
    window.setContentView(root);
    EXPECT_EQ(leaf->convertPointToView({1, 2}, nullptr), (Point{56, 27}));
    EXPECT_EQ(leaf->convertPointFromView({56, 27}, nullptr), (Point{1, 2}));
    EXPECT_EQ(root->convertPointFromView({10, 20}, nullptr), (Point{0, 0}));
}

TEST_F(ViewGeometry, ConvertsBetweenViewsOfATreeWithoutAWindow) {
    EXPECT_EQ(leaf->convertPointToView({1, 2}, upper.get()), (Point{-4, 2}));
    EXPECT_EQ(leaf->convertPointFromView({-4, 2}, upper.get()), (Point{1, 2}));
    EXPECT_EQ(lower->convertPointFromView({1, 2}, leaf.get()), (Point{41, 2}));
    EXPECT_EQ(leaf->convertRectToView({1, 2, 30, 40}, root.get()), (Rect{46, 7, 30, 40}));
}

TEST_F(ViewGeometry, ConvertsFractionsExactlyBetweenWholeOrigins) {
    EXPECT_EQ(leaf->convertPointToView({0.1, 0.7}, leaf.get()), (Point{0.1, 0.7}));
    EXPECT_EQ(leaf->convertPointToView({0.125, 0.5}, nullptr), (Point{55.125, 25.5}));
}

TEST(ViewBounds, AreTheFramesSize) {
    const View view({5, 6, 70, 80});
    EXPECT_EQ(view.bounds(), (Rect{0, 0, 70, 80}));
    EXPECT_TRUE(view.isFlipped());
}

}  // namespace
}  // namespace zor
