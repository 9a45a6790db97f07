#include "tests/dashboard/EditorFixture.h"

namespace zor {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

Value snapshot(const std::shared_ptr<ZORWidgetHostView>& widget, const char* frame) {
    return Value::Dictionary{{"objectHash", widget->hash()}, {"frame", frame}};
}

class Dragging : public test::EditorTest {};

TEST_F(Dragging, OutsideEditModeItOnlyClearsTheFlag) {
    dashboard->exitEditMode({});
    press(onA);
    dashboard->setDidDrag(true);
    drag({150, 150});
    EXPECT_FALSE(dashboard->didDrag());
    EXPECT_EQ(dashboard->currentDraggedPoint(), (Point{0, 0}));
    EXPECT_THAT(surroundings->heard, ElementsAre("press"));
    EXPECT_EQ(a->frame(), (Rect{100, 100, 80, 60}));
}

TEST_F(Dragging, AfterARightPressItDoesNothing) {
    dashboard->selectObject(a);
    rightPress(onA);
    drag({150, 150});
    EXPECT_FALSE(dashboard->didDrag());
    EXPECT_THAT(dashboard->selectedObjectFrames(), IsEmpty());
    EXPECT_EQ(a->frame(), (Rect{100, 100, 80, 60}));
    EXPECT_THAT(surroundings->heard, ElementsAre("right press"));
}

TEST_F(Dragging, TheFirstRemembersTheSelectionsFramesInItsOrder) {
    dashboard->selectObject(c);
    dashboard->selectObject(a);
    press(onA);
    EXPECT_THAT(dashboard->selectedObjectFrames(), IsEmpty());
    drag({150, 150});
    drag({170, 170});
    EXPECT_TRUE(dashboard->didDrag());
    EXPECT_THAT(dashboard->selectedObjectFrames(),
                ElementsAre(snapshot(c, "{{100, 300}, {80, 60}}"), snapshot(a, "{{100, 100}, {80, 60}}")));
    release({170, 170});
    EXPECT_THAT(dashboard->selectedObjectFrames(), IsEmpty());
}

TEST_F(Dragging, IsPassedOn) {
    press(onA);
    drag({150, 150});
    EXPECT_THAT(surroundings->heard, ElementsAre("press", "drag"));
}

TEST_F(Dragging, MovesTheWholeSelectionByThePointersTravel) {
    dashboard->selectAllObjects();
    press(onB);
    drag({325.25, 110.5});
    EXPECT_EQ(a->frame(), (Rect{105.25, 90.5, 80, 60}));
    EXPECT_EQ(b->frame(), (Rect{305.25, 90.5, 80, 60}));
    EXPECT_EQ(c->frame(), (Rect{105.25, 290.5, 80, 60}));
    EXPECT_EQ(dashboard->currentDraggedPoint(), (Point{325.25, 110.5}));
}

TEST_F(Dragging, UnselectedWidgetsStay) {
    press(onA);
    drag({150, 150});
    EXPECT_EQ(a->frame(), (Rect{130, 130, 80, 60}));
    EXPECT_EQ(b->frame(), (Rect{300, 100, 80, 60}));
}

TEST_F(Dragging, NeitherGridNorEdgesHoldAWidget) {
    canvas->setStep(50);
    press(onA);
    drag({-33.5, 620});
    EXPECT_EQ(a->frame(), (Rect{-53.5, 600, 80, 60}));
}

TEST_F(Dragging, WidgetsJumpByThePlugInViewsOrigin) {
    dashboard->view()->setFrame({30, 40, 850, 640});
    press(onA);
    drag({130, 140});
    EXPECT_EQ(a->frame(), (Rect{140, 160, 80, 60}));
    drag({131, 141});
    EXPECT_EQ(a->frame(), (Rect{141, 161, 80, 60}));
}

TEST_F(Dragging, TheLabelShowsCanvasCoordinates) {
    dashboard->view()->setFrame({30, 40, 850, 640});
    press(onA);
    EXPECT_EQ(coordinates(), "(90.0,80.0)");
    drag({130.26, 140});
    EXPECT_EQ(coordinates(), "(130.3,140.0)");
}

TEST_F(Dragging, HidesTheHandlesOfMovingWidgets) {
    click(onA);
    ASSERT_TRUE(a->allowResize());
    press(onA);
    drag({150, 150});
    EXPECT_FALSE(a->allowResize());
}

TEST_F(Dragging, WhileAWidgetIsResizedOnlyTheLabelFollows) {
    click(onA);
    press({175, 155});
    ASSERT_TRUE(a->inLiveResize());
    drag({195, 185});
    EXPECT_EQ(a->frame(), (Rect{100, 100, 100, 90}));
    EXPECT_EQ(coordinates(), "(195.0,185.0)");
    EXPECT_TRUE(dashboard->didDrag());
    EXPECT_TRUE(a->allowResize());
}

TEST_F(Dragging, OneResizingWidgetHoldsTheWholeSelection) {
    dashboard->selectAllObjects();
    press(onA);
    c->setInLiveResize(true);
    drag({150, 150});
    EXPECT_EQ(a->frame(), (Rect{100, 100, 80, 60}));
    EXPECT_EQ(b->frame(), (Rect{300, 100, 80, 60}));
    c->setInLiveResize(false);
    drag({150, 150});
    EXPECT_EQ(a->frame(), (Rect{130, 130, 80, 60}));
}

TEST_F(Dragging, FromEmptyCanvasMovesNoWidget) {
    press({90, 90});
    drag({200, 200});
    EXPECT_TRUE(dashboard->didDrag());
    EXPECT_EQ(a->frame(), (Rect{100, 100, 80, 60}));
    EXPECT_THAT(selection(), ElementsAre(a));
    drag({210, 210});
    release({210, 210});
    EXPECT_THAT(selection(), ElementsAre(a));
    EXPECT_EQ(a->frame(), (Rect{100, 100, 80, 60}));
}

TEST_F(Dragging, TakesTheContainerOutOfTheSelectionAfterRememberingIt) {
    dashboard->selectObject(a);
    dashboard->showPropertyPanel();
    press(nowhere);
    ASSERT_THAT(selection(), ElementsAre(container()));
    drag({610, 410});
    EXPECT_THAT(selection(), IsEmpty());
    EXPECT_FALSE(container()->selected());
    EXPECT_THAT(dashboard->selectedObjectFrames(), ElementsAre(snapshot(container(), "{{0, 0}, {800, 600}}")));
    EXPECT_FALSE(dashboard->propertyPanelController()->isVisible());
}

TEST_F(Dragging, OfWidgetsLeavesAnOpenPanelOpen) {
    click(onA);
    dashboard->showPropertyPanel();
    press(onA);
    drag({150, 150});
    EXPECT_TRUE(dashboard->propertyPanelController()->isVisible());
}

TEST_F(Dragging, WithAFlagLeftStandingNothingIsRemembered) {
    dashboard->setDidDrag(true);
    press(onA);
    drag({150, 150});
    EXPECT_THAT(dashboard->selectedObjectFrames(), IsEmpty());
    EXPECT_EQ(a->frame(), (Rect{130, 130, 80, 60}));
}

}  // namespace
}  // namespace zor
