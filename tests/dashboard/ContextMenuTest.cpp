#include "tests/dashboard/EditorFixture.h"

namespace zor {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

const std::vector<std::string> insertionAndExit{
    "Add Text Label",  "Add Box",          "Add Image",     "Add LED",
    "Add Map View",    "Add Web View",     "Add Plot",      "Add Level Indicator",
    "Add Round Gauge", "Add Linear Gauge", "Exit Edit Mode"};

std::vector<std::string> followedByInsertion(std::vector<std::string> titles) {
    titles.insert(titles.end(), insertionAndExit.begin(), insertionAndExit.end());
    return titles;
}

class ContextMenu : public test::EditorTest {};

TEST_F(ContextMenu, InViewModeOffersEditingAndExport) {
    dashboard->exitEditMode({});
    rightPress(onA);
    EXPECT_THAT(menuTitles(), ElementsAre("Edit Dashboard", "Export Dashboard..."));
    EXPECT_EQ(menu()->items()[0].action, "editDashboard:");
    EXPECT_EQ(menu()->items()[1].action, "exportDashboard:");
}

TEST_F(ContextMenu, InViewModeNeverTouchesSelectionOrOffsets) {
    dashboard->exitEditMode({});
    dashboard->setClickOffsetX(7);
    dashboard->setClickOffsetY(8);
    rightPress(onA);
    EXPECT_THAT(selection(), IsEmpty());
    EXPECT_FALSE(a->selected());
    EXPECT_EQ(dashboard->clickOffsetX(), 7);
    EXPECT_EQ(dashboard->clickOffsetY(), 8);
    EXPECT_EQ(dashboard->mouseDownPoint(), (Point{0, 0}));
    EXPECT_NE(window->firstResponder(), dashboard.get());
}

TEST_F(ContextMenu, IsShownForTheEventOverTheCanvas) {
    const auto event = mouse(EventType::rightMouseDown, nowhere);
    window->sendEvent(event);
    ASSERT_EQ(toolkit.menus.size(), 1u);
    EXPECT_EQ(menu()->title(), "Dashboard Context Menu");
    EXPECT_EQ(toolkit.menus[0].event, event);
    EXPECT_EQ(toolkit.menus[0].view, canvas.get());
    EXPECT_EQ(dashboard->lastMouseEvent(), event);
    EXPECT_TRUE(dashboard->lastMouseClickWasRight());
    EXPECT_THAT(surroundings->heard, ElementsAre("right press"));
}

TEST_F(ContextMenu, EveryItemIsTheDashboardsWithoutAKey) {
    dashboard->selectAllObjects();
    rightPress(onB);
    for (const auto& item : menu()->items()) {
        if (item.isSeparator) continue;
        EXPECT_EQ(item.keyEquivalent, "") << item.title;
        EXPECT_EQ(item.target.lock(), dashboard) << item.title;
        EXPECT_TRUE(dashboard->respondsTo(item.action)) << item.action;
    }
}

TEST_F(ContextMenu, IsBuiltAnewForEveryPress) {
    rightPress(nowhere);
    const auto first = menu();
    rightPress(nowhere);
    EXPECT_NE(menu(), first);
}

TEST_F(ContextMenu, OnAnEmptySpotOffersInsertion) {
    rightPress(nowhere);
    EXPECT_THAT(menuTitles(), ElementsAreArray(insertionAndExit));
}

TEST_F(ContextMenu, ItemsCallTheirCommands) {
    dashboard->selectAllObjects();
    rightPress(onB);
    std::vector<std::string> actions;
    for (const auto& item : menu()->items()) actions.push_back(item.isSeparator ? "-" : item.action);
    EXPECT_THAT(actions,
                ElementsAre("alignTopEdges:", "alignLeftEdges:", "alignBottomEdges:", "alignRightEdges:", "-",
                            "bringToFront:", "sendToBack:", "duplicateObject:", "deleteObject:", "-",
                            "addTextLabel:", "addBox:", "addImage:", "addLED:", "addMapView:", "addWebView:",
                            "addPlot:", "addLevelIndicator:", "addRoundGauge:", "addLinearGauge:", "exitEditMode:"));
}

TEST_F(ContextMenu, OnAMiddleWidgetOfSeveralSelectedOffersEverything) {
    dashboard->selectAllObjects();
    rightPress(onB);
    EXPECT_THAT(menuTitles(), ElementsAreArray(followedByInsertion(
                                  {"Align Top Edges", "Align Left Edges", "Align Bottom Edges", "Align Right Edges",
                                   "-", "Bring to Front", "Send to Back", "Duplicate", "Delete", "-"})));
}

TEST_F(ContextMenu, OnTheTopmostOmitsBringToFront) {
    rightPress(onC);
    EXPECT_THAT(menuTitles(), ElementsAreArray(followedByInsertion({"Send to Back", "Duplicate", "Delete", "-"})));
}

TEST_F(ContextMenu, OnTheLowestOmitsSendToBack) {
    rightPress(onA);
    EXPECT_THAT(menuTitles(), ElementsAreArray(followedByInsertion({"Bring to Front", "Duplicate", "Delete", "-"})));
}

TEST_F(ContextMenu, OnTheOnlyWidgetOmitsBoth) {
    b->removeFromSuperview();
    c->removeFromSuperview();
    rightPress(onA);
    EXPECT_THAT(menuTitles(), ElementsAreArray(followedByInsertion({"Duplicate", "Delete", "-"})));
}

TEST_F(ContextMenu, WithSeveralSelectedAnEmptySpotOffersAlignmentAndKeepsThem) {
    dashboard->selectObject(c);
    dashboard->selectObject(a);
    rightPress(nowhere);
    EXPECT_THAT(menuTitles(), ElementsAreArray(followedByInsertion({"Align Top Edges", "Align Left Edges",
                                                                    "Align Bottom Edges", "Align Right Edges", "-"})));
    EXPECT_THAT(selection(), ElementsAre(c, a));
}

TEST_F(ContextMenu, TheSelectionIsCountedBeforeTheHitJoinsIt) {
    dashboard->selectObject(a);
    rightPress(onB);
    EXPECT_THAT(selection(), ElementsAre(a, b));
    EXPECT_EQ(menuTitles().front(), "Bring to Front");
    rightPress(onB);
    EXPECT_EQ(menuTitles().front(), "Align Top Edges");
}

TEST_F(ContextMenu, AHitJoinsTheSelectionWithOrWithoutShift) {
    dashboard->selectObject(a);
    rightPress(onC, shiftKeyMask);
    rightPress(onB);
    EXPECT_THAT(selection(), ElementsAre(a, c, b));
    EXPECT_FALSE(b->allowResize());
}

TEST_F(ContextMenu, OfOverlappingWidgetsTheHighestNumberIsHit) {
    b->setFrame({110, 110, 80, 60});
    rightPress({120, 120});
    EXPECT_THAT(selection(), ElementsAre(b));
    dashboard->unselectAllObjects();
    a->setZOrder(9);
    rightPress({120, 120});
    EXPECT_THAT(selection(), ElementsAre(a));
}

TEST_F(ContextMenu, OfEqualNumbersTheLowerWidgetIsHit) {
    b->setFrame({110, 110, 80, 60});
    a->setZOrder(2);
    rightPress({120, 120});
    EXPECT_THAT(selection(), ElementsAre(a));
}

TEST_F(ContextMenu, OffsetsAreThePointOnAnEmptySpot) {
    dashboard->view()->setFrame({30, 40, 850, 640});
    rightPress({601.5, 402});
    EXPECT_EQ(dashboard->clickOffsetX(), 601.5);
    EXPECT_EQ(dashboard->clickOffsetY(), 402);
    EXPECT_EQ(dashboard->mouseDownPoint(), (Point{601.5, 402}));
}

TEST_F(ContextMenu, OffsetsAreRelativeToAHit) {
    rightPress({330, 125});
    EXPECT_EQ(dashboard->clickOffsetX(), 30);
    EXPECT_EQ(dashboard->clickOffsetY(), 25);
    EXPECT_EQ(dashboard->mouseDownPoint(), (Point{330, 125}));
}

TEST_F(ContextMenu, InEditModeThePlugInBecomesFirstResponder) {
    rightPress(nowhere);
    EXPECT_EQ(window->firstResponder(), dashboard.get());
}

TEST_F(ContextMenu, OnAnEmptyCanvasOffersInsertion) {
    dashboard->selectAllObjects();
    dashboard->deleteObject({});
    rightPress(onA);
    EXPECT_THAT(menuTitles(), ElementsAreArray(insertionAndExit));
}

TEST_F(ContextMenu, AChosenItemActsOnTheDashboard) {
    rightPress(onA);
    EXPECT_TRUE(menu()->performItemWithTitle("Delete"));
    EXPECT_THAT(test::widgetsOn(canvas), ElementsAre(b, c));
    rightPress(nowhere);
    EXPECT_TRUE(menu()->performItemWithTitle("Exit Edit Mode"));
    EXPECT_FALSE(canvas->editMode());
    rightPress(nowhere);
    EXPECT_TRUE(menu()->performItemWithTitle("Edit Dashboard"));
    EXPECT_TRUE(canvas->editMode());
}

}  // namespace
}  // namespace zor
