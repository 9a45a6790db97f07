#include <gmock/gmock.h>

#include "host/views/RecordingContext.h"
#include "host/views/ShapeLayer.h"
#include "tests/host/views/ProbeView.h"
#include "tests/support/FakeToolkit.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace zor {
namespace {

std::vector<std::string> texts(const RecordingContext& context) {
    std::vector<std::string> texts;
    for (const auto& operation : context.operations()) {
        texts.push_back(operation.op == "drawText" ? operation.text : operation.op);
    }
    return texts;
}

class ViewDisplay : public testing::Test {
protected:
    ProbeView::Notes notes;
    std::shared_ptr<FakeWindowPeer> peer = std::make_shared<FakeWindowPeer>();
    Window window;
    std::shared_ptr<ProbeView> root = makeProbe("root", {10, 20, 200, 100}, notes);
    std::shared_ptr<ProbeView> left = makeProbe("left", {0, 0, 100, 100}, notes);
    std::shared_ptr<ProbeView> right = makeProbe("right", {100, 0, 100, 100}, notes);
    std::shared_ptr<ProbeView> leaf = makeProbe("leaf", {80, 10, 50, 20}, notes);
    RecordingContext context;

    void SetUp() override {
        root->addSubview(left);
        root->addSubview(right);
        left->addSubview(leaf);
        window.setPeer(peer);
        window.setContentView(root);
        peer->damage.clear();
    }
};

TEST_F(ViewDisplay, DrawsParentsBelowChildrenBottomToTop) {
    root->displayTree(context, {0, 0, 200, 100}, false);
    EXPECT_THAT(texts(context), ElementsAre("root", "left", "leaf", "right"));
    EXPECT_EQ(context.depth(), 0u);
}

TEST_F(ViewDisplay, PlacesAndClipsEveryView) {
    root->displayTree(context, {0, 0, 200, 100}, false);
    EXPECT_EQ(context.operations()[2].transform.apply(Point{0, 0}), (Point{80, 10}));
    EXPECT_EQ(context.operations()[2].clip, (Rect{80, 10, 20, 20}));
    EXPECT_EQ(context.operations()[3].clip, (Rect{100, 0, 100, 100}));
}

TEST_F(ViewDisplay, AViewThatDoesNotClipLetsItsChildrenOut) {
    left->clips = false;
    root->displayTree(context, {0, 0, 200, 100}, false);
    EXPECT_EQ(context.operations()[2].clip, (Rect{80, 10, 50, 20}));
}

TEST_F(ViewDisplay, LeavesOutWhatTheDamageDoesNotTouch) {
    root->displayTree(context, {120, 50, 10, 10}, false);
    EXPECT_THAT(texts(context), ElementsAre("root", "right"));
    EXPECT_EQ(context.operations()[1].rect, (Rect{20, 50, 10, 10}));
}

TEST_F(ViewDisplay, LeavesOutHiddenViews) {
    left->setHidden(true);
    root->displayTree(context, {0, 0, 200, 100}, false);
    EXPECT_THAT(texts(context), ElementsAre("root", "right"));
}

TEST_F(ViewDisplay, DrawsLayersOverTheChildrenAndOverlaysLast) {
    const auto layer = std::make_shared<ShapeLayer>();
    layer->setFillColor(Color::clear());
    layer->setPath(Path::rect({0, 0, 10, 10}));
    left->addSublayer(layer);
    root->displayTree(context, {0, 0, 200, 100}, true);
    EXPECT_THAT(texts(context), ElementsAre("root", "left", "leaf", "leaf overlay", "strokePath", "left overlay",
                                            "right", "right overlay", "root overlay"));
    EXPECT_EQ(context.depth(), 0u);
}

TEST_F(ViewDisplay, DamageReachesThePeerInWindowCoordinatesWithinTheParents) {
    leaf->setNeedsDisplay(true);
    leaf->setNeedsDisplay(false);
    leaf->setNeedsDisplayInRect({5, 5, 5, 5});
    EXPECT_THAT(peer->damage, ElementsAre(Rect{90, 30, 20, 20}, Rect{95, 35, 5, 5}));
}

TEST_F(ViewDisplay, WhatCannotBeSeenAsksForNothing) {
    leaf->setNeedsDisplayInRect({30, 0, 10, 10});
    left->setHidden(true);
    peer->damage.clear();
    leaf->setNeedsDisplay(true);
    left->setNeedsDisplay(true);
    EXPECT_THAT(peer->damage, IsEmpty());
}

TEST_F(ViewDisplay, AMoveDamagesBothPlaces) {
    right->setFrame({110, 10, 50, 50});
    EXPECT_THAT(peer->damage, ElementsAre(Rect{110, 20, 100, 100}, Rect{120, 30, 50, 50}));
    peer->damage.clear();
    right->setFrame({110, 10, 50, 50});
    EXPECT_THAT(peer->damage, IsEmpty());
}

TEST_F(ViewDisplay, HidingShowingAndRemovingDamageThePlace) {
    right->setHidden(true);
    right->setHidden(true);
    right->setHidden(false);
    right->removeFromSuperview();
    root->addSubview(right);
    const Rect place{110, 20, 100, 100};
    EXPECT_THAT(peer->damage, ElementsAre(place, place, place, place));
}

TEST_F(ViewDisplay, PicturesHoldTheRectangleWithoutOverlays) {
    FakeToolkit& toolkit = FakeToolkit::install();
    const std::string text = textOf(root->dataWithPDFInsideRect({90, 0, 60, 40}));
    EXPECT_TRUE(text.starts_with("pdf 60 40\ndrawText 90 0 60 40 ")) << text;
    EXPECT_EQ(text.find("overlay"), std::string::npos);
    EXPECT_NE(text.find("at 1 0 0 1 -90 0 within -90 0 200 100\n"), std::string::npos) << text;
    EXPECT_TRUE(textOf(root->dataWithPNGInsideRect({90, 0, 60, 40})).starts_with("png 60 40\n"));
    EXPECT_THAT(toolkit.pictures, ElementsAre(Size{60, 40}, Size{60, 40}));
}

TEST_F(ViewDisplay, AnEmptyRectangleIsAnEmptyPage) {
    FakeToolkit::install();
    EXPECT_EQ(textOf(root->dataWithPDFInsideRect({0, 0, 0, 0})), "pdf 0 0\n");
}

TEST_F(ViewDisplay, NoPictureOfWhatIsTooLargeOrNotFinite) {
    FakeToolkit& toolkit = FakeToolkit::install();
    EXPECT_EQ(root->dataWithPDFInsideRect({0, 0, 100'001, 10}), nullptr);
    EXPECT_EQ(root->dataWithPDFInsideRect({0, 0, 10, std::numeric_limits<double>::infinity()}), nullptr);
    EXPECT_EQ(root->dataWithPNGInsideRect({std::numeric_limits<double>::quiet_NaN(), 0, 10, 10}), nullptr);
    EXPECT_THAT(toolkit.pictures, IsEmpty());
    toolkit.failDrawing = true;
    EXPECT_EQ(root->dataWithPDFInsideRect({0, 0, 10, 10}), nullptr);
}

TEST_F(ViewDisplay, SkipsTheManyChildrenOutsideTheDamage) {
    for (int i = 0; i < 10'000; ++i) {
        right->addSubview(makeProbe("many", {0, static_cast<double>(i), 10, 1}, notes));
    }
    right->displayTree(context, {0, 40, 10, 2}, false);
    EXPECT_THAT(texts(context), ElementsAre("right", "many", "many"));
}

}  // namespace
}  // namespace zor
