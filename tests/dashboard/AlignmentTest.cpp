#include "tests/dashboard/EditorFixture.h"

namespace zor {
namespace {

class Alignment : public test::EditorTest {
protected:
    void frames(const Rect& frameA, const Rect& frameB, const Rect& frameC) {
        a->setFrame(frameA);
        b->setFrame(frameB);
        c->setFrame(frameC);
    }
    void select(const WidgetList& widgets) {
        for (const auto& widget : widgets) dashboard->selectObject(widget);
    }
};

TEST_F(Alignment, OfTopEdgesTakesTheFirstHigherWidgetNotTheHighest) {
    frames({10, 100, 20, 20}, {20, 80, 20, 20}, {30, 50, 20, 20});
    select({a, b, c});
    dashboard->alignTopEdges({});
    EXPECT_EQ(a->frame(), (Rect{10, 80, 20, 20}));
    EXPECT_EQ(b->frame(), (Rect{20, 80, 20, 20}));
    EXPECT_EQ(c->frame(), (Rect{30, 80, 20, 20}));
}

TEST_F(Alignment, OfLeftEdgesTakesTheFirstFartherLeft) {
    frames({100, 10, 20, 20}, {80, 20, 20, 20}, {50, 30, 20, 20});
    select({a, b, c});
    dashboard->alignLeftEdges({});
    EXPECT_EQ(a->frame(), (Rect{80, 10, 20, 20}));
    EXPECT_EQ(b->frame(), (Rect{80, 20, 20, 20}));
    EXPECT_EQ(c->frame(), (Rect{80, 30, 20, 20}));
}

TEST_F(Alignment, OfBottomEdgesTakesTheFirstLower) {
    frames({10, 50, 20, 20}, {20, 60, 20, 30}, {30, 100, 20, 10});
    select({a, b, c});
    dashboard->alignBottomEdges({});
    EXPECT_EQ(a->frame(), (Rect{10, 70, 20, 20}));
    EXPECT_EQ(b->frame(), (Rect{20, 60, 20, 30}));
    EXPECT_EQ(c->frame(), (Rect{30, 80, 20, 10}));
}

TEST_F(Alignment, OfRightEdgesTakesTheFirstFartherRight) {
    frames({50, 10, 20, 20}, {60, 20, 30, 20}, {100, 30, 10, 20});
    select({a, b, c});
    dashboard->alignRightEdges({});
    EXPECT_EQ(a->frame(), (Rect{70, 10, 20, 20}));
    EXPECT_EQ(b->frame(), (Rect{60, 20, 30, 20}));
    EXPECT_EQ(c->frame(), (Rect{80, 30, 10, 20}));
}

TEST_F(Alignment, TheFirstSelectedIsTheReferenceWhereNoneLiesBeyond) {
    frames({10, 50, 20, 20}, {20, 80, 20, 20}, {30, 70, 20, 20});
    select({a, b});
    dashboard->alignTopEdges({});
    EXPECT_EQ(a->frame(), (Rect{10, 50, 20, 20}));
    EXPECT_EQ(b->frame(), (Rect{20, 50, 20, 20}));
    EXPECT_EQ(c->frame(), (Rect{30, 70, 20, 20}));
}

TEST_F(Alignment, TheSelectionsOrderDecidesNotTheStacking) {
    frames({10, 100, 20, 20}, {20, 80, 20, 20}, {30, 50, 20, 20});
    select({c, a, b});
    dashboard->alignTopEdges({});
    EXPECT_EQ(a->frame().y, 50);
    EXPECT_EQ(b->frame().y, 50);
    EXPECT_EQ(c->frame().y, 50);
}

TEST_F(Alignment, EqualEdgesDoNotReplaceTheReference) {
    // By the bottom edge all are equal but the last; the heights tell which is the reference.
    frames({10, 100, 20, 50}, {20, 120, 20, 30}, {30, 110, 20, 20});
    select({a, b, c});
    dashboard->alignBottomEdges({});
    EXPECT_EQ(a->frame(), (Rect{10, 100, 20, 50}));
    EXPECT_EQ(b->frame(), (Rect{20, 120, 20, 30}));
    EXPECT_EQ(c->frame(), (Rect{30, 130, 20, 20}));
}

TEST_F(Alignment, OfBottomEdgesCountsTheHeights) {
    frames({0, 10, 20, 100}, {0, 10, 20, 30}, {0, 0, 1, 1});
    select({a, b});
    dashboard->alignBottomEdges({});
    EXPECT_EQ(b->frame().y, 80);
}

TEST_F(Alignment, OfRightEdgesCountsTheWidths) {
    frames({20, 0, 200, 20}, {20, 0, 50, 20}, {0, 0, 1, 1});
    select({a, b});
    dashboard->alignRightEdges({});
    EXPECT_EQ(b->frame().x, 170);
}

TEST_F(Alignment, ModesAreNumberedFromTheTop) {
    frames({50, 60, 70, 80}, {200, 300, 10, 20}, {0, 0, 1, 1});
    select({a, b});
    dashboard->alignEdges(1);
    EXPECT_EQ(b->frame(), (Rect{200, 60, 10, 20}));
    dashboard->alignEdges(2);
    EXPECT_EQ(b->frame(), (Rect{50, 60, 10, 20}));
    dashboard->alignEdges(3);
    EXPECT_EQ(b->frame(), (Rect{50, 120, 10, 20}));
    dashboard->alignEdges(4);
    EXPECT_EQ(b->frame(), (Rect{110, 120, 10, 20}));
}

TEST_F(Alignment, AnotherModeMovesNothingButRegistersItsStep) {
    select({a, b});
    for (const std::uint32_t mode : {0u, 5u, 4294967295u}) dashboard->alignEdges(mode);
    EXPECT_EQ(a->frame(), (Rect{100, 100, 80, 60}));
    EXPECT_EQ(b->frame(), (Rect{300, 100, 80, 60}));
    EXPECT_EQ(undoSteps(), 3);
}

TEST_F(Alignment, NeitherGridNorCanvasBound) {
    canvas->setStep(50);
    frames({-33.25, 100, 20, 20}, {20, 80, 20, 20}, {0, 0, 1, 1});
    select({a, b});
    dashboard->alignLeftEdges({});
    EXPECT_EQ(b->frame().x, -33.25);
}

TEST_F(Alignment, UndoRestoresEveryMovedFrameAndSizes) {
    select({a, b, c});
    dashboard->alignLeftEdges({});
    EXPECT_EQ(undoSteps(), 1);
    b->setFrame({1, 2, 3, 4});
    dashboard->undo({});
    EXPECT_EQ(a->frame(), (Rect{100, 100, 80, 60}));
    EXPECT_EQ(b->frame(), (Rect{300, 100, 80, 60}));
    EXPECT_EQ(c->frame(), (Rect{100, 300, 80, 60}));
    EXPECT_FALSE(dashboard->undoManager()->canRedo());
}

TEST_F(Alignment, UndoLeavesTheReferenceWhereItIsNow) {
    select({a, b});
    dashboard->alignTopEdges({});
    a->setFrame({1, 2, 3, 4});
    dashboard->undo({});
    EXPECT_EQ(a->frame(), (Rect{1, 2, 3, 4}));
}

TEST_F(Alignment, UndoPassesOverAWidgetThatIsGone) {
    frames({10, 50, 20, 20}, {20, 80, 20, 20}, {30, 70, 20, 20});
    select({a, b, c});
    dashboard->alignTopEdges({});
    b->removeFromSuperview();
    dashboard->undo({});
    EXPECT_EQ(b->frame().y, 50);
    EXPECT_EQ(c->frame().y, 70);
}

TEST_F(Alignment, OfASoleWidgetRegistersAStep) {
    select({a});
    dashboard->alignRightEdges({});
    EXPECT_EQ(undoSteps(), 1);
    EXPECT_EQ(a->frame(), (Rect{100, 100, 80, 60}));
}

TEST_F(Alignment, OfNothingMovesNothing) {
    dashboard->alignTopEdges({});
    EXPECT_EQ(a->frame(), (Rect{100, 100, 80, 60}));
}

TEST_F(Alignment, KeepsTheSelection) {
    select({c, a});
    dashboard->alignTopEdges({});
    EXPECT_EQ(selection(), (WidgetList{c, a}));
}

}  // namespace
}  // namespace zor
