#include "tests/dashboard/EditorFixture.h"

namespace zor {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class MousePress : public test::EditorTest {
protected:
    /// Away from the window's corner.
    void moveView() { dashboard->view()->setFrame({30, 40, 850, 640}); }
    ObjectPtr panelTarget() const { return dashboard->propertyPanelController()->targetObject(); }
    bool panelShows() const {
        const auto panel = dashboard->propertyPanelController();
        return panel && panel->isVisible();
    }
};

TEST_F(MousePress, WithControlItGoesToTheContextMenuOnly) {
    dashboard->selectObject(c);
    press(nowhere, controlKeyMask);
    EXPECT_EQ(toolkit.menus.size(), 1u);
    EXPECT_THAT(surroundings->heard, ElementsAre("right press"));
    EXPECT_TRUE(dashboard->lastMouseClickWasRight());
    EXPECT_THAT(selection(), ElementsAre(c));
    EXPECT_FALSE(dashboard->mouseCoordinateView());
    EXPECT_FALSE(dashboard->drawSelectionBox());
}

TEST_F(MousePress, WithControlOutsideEditModeToo) {
    dashboard->exitEditMode({});
    press(onA, controlKeyMask);
    EXPECT_THAT(menuTitles(), ElementsAre("Edit Dashboard", "Export Dashboard..."));
    EXPECT_THAT(surroundings->heard, ElementsAre("right press"));
}

TEST_F(MousePress, OutsideEditModeItIsOnlyPassedOnAndKept) {
    dashboard->exitEditMode({});
    dashboard->setLastMouseClickWasRight(true);
    const auto event = mouse(EventType::mouseDown, onA);
    window->sendEvent(event);
    EXPECT_THAT(surroundings->heard, ElementsAre("press"));
    EXPECT_EQ(dashboard->lastMouseEvent(), event);
    EXPECT_FALSE(dashboard->lastMouseClickWasRight());
    EXPECT_THAT(selection(), IsEmpty());
    EXPECT_EQ(dashboard->mouseDownPoint(), (Point{0, 0}));
    EXPECT_FALSE(dashboard->mouseCoordinateView());
    EXPECT_NE(window->firstResponder(), dashboard.get());
}

TEST_F(MousePress, InEditModeItIsPassedOnAndKeptToo) {
    const auto event = mouse(EventType::mouseDown, onA);
    dashboard->setLastMouseClickWasRight(true);
    window->sendEvent(event);
    EXPECT_THAT(surroundings->heard, ElementsAre("press"));
    EXPECT_EQ(dashboard->lastMouseEvent(), event);
    EXPECT_FALSE(dashboard->lastMouseClickWasRight());
}

TEST_F(MousePress, MakesThePlugInFirstResponder) {
    press(onA);
    EXPECT_EQ(window->firstResponder(), dashboard.get());
}

TEST_F(MousePress, ShowsALabelOnThePlugInsView) {
    press(onA);
    const auto label = dashboard->mouseCoordinateView();
    ASSERT_TRUE(label);
    EXPECT_EQ(label->frame(), (Rect{0, 0, 200, 24}));
    EXPECT_EQ(label->superview(), dashboard->view().get());
    EXPECT_FALSE(label->isHidden());
}

TEST_F(MousePress, ShowsTheSameLabelAgain) {
    click(onA);
    const auto label = dashboard->mouseCoordinateView();
    ASSERT_TRUE(label->isHidden());
    press(onB);
    EXPECT_EQ(dashboard->mouseCoordinateView(), label);
    EXPECT_FALSE(label->isHidden());
    EXPECT_EQ(dashboard->view()->subviews().size(), 2u);
}

TEST_F(MousePress, TheLabelHasOneDecimalPlace) {
    press({12.3, 40});
    EXPECT_EQ(coordinates(), "(12.3,40.0)");
    press({7.25, 99.96});
    EXPECT_EQ(coordinates(), "(7.2,100.0)");
}

TEST_F(MousePress, OffsetsAndLabelAreLessThePlugInViewsOrigin) {
    moveView();
    press({42.3, 80});
    EXPECT_EQ(dashboard->mouseDownPoint(), (Point{42.3, 80}));
    EXPECT_DOUBLE_EQ(dashboard->clickOffsetX(), 12.3);
    EXPECT_EQ(dashboard->clickOffsetY(), 40);
    EXPECT_EQ(coordinates(), "(12.3,40.0)");
}

TEST_F(MousePress, EveryWidgetLearnsItsDistance) {
    press({125, 130});
    EXPECT_EQ(a->mouseDownRelativeOffset(), (Point{25, 30}));
    EXPECT_EQ(b->mouseDownRelativeOffset(), (Point{-175, 30}));
    EXPECT_EQ(c->mouseDownRelativeOffset(), (Point{25, -170}));
}

TEST_F(MousePress, TheDistanceIsLessThePlugInViewsOrigin) {
    moveView();
    press({125, 130});
    EXPECT_EQ(a->mouseDownRelativeOffset(), (Point{-5, -10}));
}

TEST_F(MousePress, OnAnUnselectedWidgetSelectsItAlone) {
    dashboard->selectObject(b);
    dashboard->selectObject(c);
    press(onA);
    EXPECT_THAT(selection(), ElementsAre(a));
    EXPECT_FALSE(b->selected());
}

TEST_F(MousePress, WithShiftItJoinsTheOthers) {
    dashboard->selectObject(b);
    press(onA, shiftKeyMask);
    EXPECT_THAT(selection(), ElementsAre(b, a));
    EXPECT_TRUE(b->selected());
}

TEST_F(MousePress, OnASelectedWidgetChangesNothing) {
    dashboard->selectObject(b);
    dashboard->selectObject(a);
    press(onB);
    EXPECT_THAT(selection(), ElementsAre(b, a));
    press(onB, shiftKeyMask);
    EXPECT_THAT(selection(), ElementsAre(b, a));
    EXPECT_FALSE(dashboard->drawSelectionBox());
}

TEST_F(MousePress, ASelectedWidgetIsHitThroughAnUnselectedOneAboveIt) {
    b->setFrame({110, 110, 80, 60});
    dashboard->selectObject(a);
    press({120, 120});
    EXPECT_THAT(selection(), ElementsAre(a));
}

TEST_F(MousePress, OfUnselectedOnesTheTopmostIsHit) {
    b->setFrame({110, 110, 80, 60});
    press({120, 120});
    EXPECT_THAT(selection(), ElementsAre(b));
}

TEST_F(MousePress, AnOpenPanelFollowsASoleNewSelection) {
    dashboard->selectObject(b);
    dashboard->showPropertyPanel();
    int reloads = 0;
    dashboard->propertyPanelController()->setObserver([&] { ++reloads; });
    press(onA);
    EXPECT_EQ(panelTarget(), a->targetView());
    EXPECT_EQ(reloads, 1);
    press(onC, shiftKeyMask);
    EXPECT_EQ(panelTarget(), a->targetView());
    EXPECT_EQ(reloads, 1);
}

TEST_F(MousePress, AClosedPanelStaysClosed) {
    dashboard->selectObject(b);
    dashboard->showPropertyPanel();
    dashboard->hidePropertyPanel();
    press(onA);
    EXPECT_FALSE(panelShows());
    EXPECT_EQ(panelTarget(), b->targetView());
}

TEST_F(MousePress, OnEmptyCanvasClearsTheSelectionAndStartsABand) {
    dashboard->selectObject(a);
    press(nowhere);
    EXPECT_THAT(selection(), IsEmpty());
    EXPECT_TRUE(dashboard->drawSelectionBox());
    EXPECT_TRUE(dashboard->shapeLayer());
    EXPECT_FALSE(dashboard->propertyPanelController());
}

TEST_F(MousePress, OnEmptyCanvasWithShiftClearsTheSelectionToo) {
    dashboard->selectObject(a);
    press(nowhere, shiftKeyMask);
    EXPECT_THAT(selection(), IsEmpty());
    EXPECT_FALSE(a->selected());
    EXPECT_TRUE(dashboard->drawSelectionBox());
}

TEST_F(MousePress, OnEmptyCanvasAPanelShowsTheDashboardsOwnSettings) {
    dashboard->selectObject(a);
    dashboard->showPropertyPanel();
    press(nowhere);
    EXPECT_THAT(selection(), ElementsAre(container()));
    EXPECT_EQ(panelTarget(), canvas);
    EXPECT_TRUE(panelShows());
}

TEST_F(MousePress, OnEmptyCanvasAClosedPanelOpensAgain) {
    dashboard->selectObject(a);
    dashboard->showPropertyPanel();
    dashboard->hidePropertyPanel();
    press(nowhere);
    EXPECT_THAT(selection(), ElementsAre(container()));
    EXPECT_TRUE(panelShows());
}

TEST_F(MousePress, ASelectedContainerIsHitEverywhere) {
    dashboard->selectObject(container());
    press(onA);
    EXPECT_THAT(selection(), ElementsAre(container()));
    press(nowhere);
    EXPECT_THAT(selection(), ElementsAre(container()));
    EXPECT_FALSE(dashboard->drawSelectionBox());
}

TEST_F(MousePress, TwiceOpensThePanelForTheWidget) {
    press(onA, 0, 2);
    EXPECT_THAT(selection(), ElementsAre(a));
    EXPECT_TRUE(panelShows());
    EXPECT_EQ(panelTarget(), a->targetView());
    EXPECT_FALSE(dashboard->drawSelectionBox());
}

TEST_F(MousePress, TwiceOnAnUnselectedWidgetSelectsItAloneEvenWithShift) {
    dashboard->selectObject(b);
    press(onA, shiftKeyMask, 2);
    EXPECT_THAT(selection(), ElementsAre(a));
}

TEST_F(MousePress, TwiceOnASelectedWidgetKeepsTheSelectionAndShowsItsFirst) {
    dashboard->selectObject(b);
    dashboard->selectObject(a);
    press(onA, 0, 2);
    EXPECT_THAT(selection(), ElementsAre(b, a));
    EXPECT_EQ(panelTarget(), b->targetView());
}

TEST_F(MousePress, TwiceHitsTheTopmostWhateverIsSelected) {
    b->setFrame({110, 110, 80, 60});
    dashboard->selectObject(a);
    press({120, 120}, 0, 2);
    EXPECT_THAT(selection(), ElementsAre(b));
}

TEST_F(MousePress, TwiceOnEmptyCanvasAddsTheContainer) {
    dashboard->selectObject(a);
    press(nowhere, 0, 2);
    EXPECT_THAT(selection(), ElementsAre(a, container()));
    EXPECT_TRUE(panelShows());
    EXPECT_FALSE(dashboard->drawSelectionBox());
}

TEST_F(MousePress, TwiceTellsNoWidgetItsDistance) {
    press(onA, 0, 2);
    EXPECT_EQ(a->mouseDownRelativeOffset(), (Point{0, 0}));
    EXPECT_EQ(dashboard->mouseDownPoint(), onA);
}

TEST_F(MousePress, ThriceIsASinglePress) {
    press(onA, 0, 3);
    EXPECT_THAT(selection(), ElementsAre(a));
    EXPECT_FALSE(dashboard->propertyPanelController());
    EXPECT_EQ(a->mouseDownRelativeOffset(), (Point{20, 20}));
}

TEST_F(MousePress, ADoubleClickOnEmptyCanvasShowsTheDashboardsOwnSettings) {
    doubleClick(nowhere);
    EXPECT_TRUE(panelShows());
    EXPECT_EQ(panelTarget(), canvas);
}

}  // namespace
}  // namespace zor
