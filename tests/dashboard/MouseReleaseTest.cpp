#include "tests/dashboard/EditorFixture.h"

namespace zor {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class MouseRelease : public test::EditorTest {
protected:
    void select(const WidgetList& widgets) {
        for (const auto& widget : widgets) dashboard->selectObject(widget);
    }
};

TEST_F(MouseRelease, IsPassedOnKeptAndHidesTheLabel) {
    press(onA);
    const auto event = mouse(EventType::mouseUp, onA);
    window->sendEvent(event);
    EXPECT_THAT(surroundings->heard, ElementsAre("press", "release"));
    EXPECT_EQ(dashboard->lastMouseEvent(), event);
    EXPECT_TRUE(dashboard->mouseCoordinateView()->isHidden());
}

TEST_F(MouseRelease, OutsideEditModeItOnlyEndsTheDragging) {
    click(onA);
    dashboard->exitEditMode({});
    const auto steps = undoSteps();
    dashboard->setDidDrag(true);
    const auto event = mouse(EventType::mouseUp, onB);
    window->sendEvent(mouse(EventType::mouseDown, onB));
    window->sendEvent(event);
    EXPECT_FALSE(dashboard->didDrag());
    EXPECT_EQ(dashboard->lastMouseEvent(), event);
    EXPECT_TRUE(dashboard->mouseCoordinateView()->isHidden());
    EXPECT_THAT(selection(), IsEmpty());
    EXPECT_EQ(undoSteps(), steps);
}

TEST_F(MouseRelease, EveryOneInEditModeIsAnUndoStep) {
    click(onA);
    EXPECT_EQ(undoSteps(), 1);
    click(nowhere);
    EXPECT_EQ(undoSteps(), 2);
    press(onA);
    drag({130, 130});
    drag({150, 130});
    release({150, 130});
    EXPECT_EQ(undoSteps(), 3);
}

TEST_F(MouseRelease, OfAClickOnOneOfSeveralLeavesItAlone) {
    select({a, b, c});
    click(onB);
    EXPECT_THAT(selection(), ElementsAre(b));
    EXPECT_TRUE(b->selected());
    EXPECT_TRUE(b->allowResize());
    EXPECT_FALSE(a->selected());
}

TEST_F(MouseRelease, OfAShiftClickKeepsEverybodyWithoutHandles) {
    click(onA);
    ASSERT_TRUE(a->allowResize());
    click(onB, shiftKeyMask);
    EXPECT_THAT(selection(), ElementsAre(a, b));
    EXPECT_FALSE(a->allowResize());
    EXPECT_FALSE(b->allowResize());
}

TEST_F(MouseRelease, OfAShiftClickOnASelectedWidgetMovesItToTheEnd) {
    select({a, b, c});
    click(onA, shiftKeyMask);
    EXPECT_THAT(selection(), ElementsAre(b, c, a));
    EXPECT_TRUE(a->selected());
}

TEST_F(MouseRelease, OfAShiftClickOnTheOnlyOneKeepsItSelected) {
    click(onA);
    click(onA, shiftKeyMask);
    EXPECT_THAT(selection(), ElementsAre(a));
    EXPECT_TRUE(a->allowResize());
}

TEST_F(MouseRelease, TheShiftKeyCountsAtTheRelease) {
    select({a, b});
    press(onA, shiftKeyMask);
    release(onA);
    EXPECT_THAT(selection(), ElementsAre(a));
}

TEST_F(MouseRelease, TheClickedWidgetLearnsThePress) {
    press({125, 130});
    release({126, 131});
    EXPECT_EQ(a->mouseDownPoint(), (Point{125, 130}));
    EXPECT_EQ(a->clickOffsetX(), 25);
    EXPECT_EQ(a->clickOffsetY(), 30);
    EXPECT_EQ(b->mouseDownPoint(), (Point{0, 0}));
}

TEST_F(MouseRelease, TheTopmostWidgetUnderItIsTheOneClicked) {
    b->setFrame({110, 110, 80, 60});
    select({a});
    click({120, 120});
    EXPECT_THAT(selection(), ElementsAre(b));
}

TEST_F(MouseRelease, OffsetsAreThePointLessThePlugInViewsOrigin) {
    dashboard->view()->setFrame({30, 40, 850, 640});
    click({125, 130});
    EXPECT_EQ(dashboard->clickOffsetX(), 95);
    EXPECT_EQ(dashboard->clickOffsetY(), 90);
}

TEST_F(MouseRelease, ThePanelHidesWhereSeveralAreSelected) {
    click(onA);
    dashboard->showPropertyPanel();
    click(onA, shiftKeyMask);
    EXPECT_TRUE(dashboard->propertyPanelController()->isVisible());
    click(onB, shiftKeyMask);
    EXPECT_FALSE(dashboard->propertyPanelController()->isVisible());
}

TEST_F(MouseRelease, OnEmptyCanvasWithoutMovingRemovesTheBandAndSelectsNothing) {
    select({a});
    click(nowhere);
    EXPECT_THAT(selection(), IsEmpty());
    EXPECT_FALSE(dashboard->shapeLayer());
    EXPECT_THAT(canvas->sublayers(), IsEmpty());
    EXPECT_FALSE(dashboard->drawSelectionBox());
    EXPECT_FALSE(dashboard->didDrag());
}

TEST_F(MouseRelease, OnEmptyCanvasTheContainerIsLetGoUnlessShiftIsHeld) {
    select({a});
    dashboard->showPropertyPanel();
    click(nowhere);
    EXPECT_THAT(selection(), IsEmpty());
    EXPECT_FALSE(container()->selected());
    click(nowhere, shiftKeyMask);
    EXPECT_THAT(selection(), ElementsAre(container()));
    EXPECT_TRUE(container()->allowResize());
}

TEST_F(MouseRelease, OffEveryWidgetWithoutABandItClearsTheSelectionAndLeavesTheDragStanding) {
    dashboard->view()->setFrame({30, 40, 850, 640});
    click(onA);
    press(onA);
    // So far away from the pointer that the release misses it.
    a->setMouseDownRelativeOffset({-200, -200});
    drag({130, 130});
    release({130, 130});
    EXPECT_THAT(selection(), IsEmpty());
    EXPECT_FALSE(a->selected());
    EXPECT_TRUE(dashboard->didDrag());
    EXPECT_EQ(undoSteps(), 2);
    // There the offsets are those of the hit test.
    EXPECT_EQ(dashboard->clickOffsetX(), 130);
    EXPECT_EQ(dashboard->clickOffsetY(), 130);
    click(onB);
    EXPECT_FALSE(dashboard->didDrag());
}

TEST_F(MouseRelease, AfterADragTheSelectionStaysAndASoleWidgetOffersItsHandle) {
    select({a});
    press(onA);
    drag({200, 200});
    EXPECT_FALSE(a->allowResize());
    release({200, 200});
    EXPECT_THAT(selection(), ElementsAre(a));
    EXPECT_TRUE(a->allowResize());
    EXPECT_FALSE(dashboard->didDrag());
}

TEST_F(MouseRelease, AfterADragOfSeveralTheyStaySelectedWithoutHandles) {
    select({a, b});
    press(onA);
    drag({130, 130});
    release({130, 130});
    EXPECT_THAT(selection(), ElementsAre(a, b));
    EXPECT_FALSE(a->allowResize());
    EXPECT_FALSE(b->allowResize());
}

}  // namespace
}  // namespace zor
