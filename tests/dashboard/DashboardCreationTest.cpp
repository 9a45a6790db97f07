#include <cmath>

#include "tests/dashboard/DashboardSupport.h"

namespace zor {
namespace {

using test::box;
using test::dashboardOf;
using test::nan;
using test::widgetsOn;
using ::testing::ElementsAre;

Rect canvasFrame(WidgetList widgets, Size size = {}) {
    return dashboardOf(std::move(widgets), size)->editView()->frame();
}

TEST(DashboardSize, IsTheFarthestEdgeAndTheNearestMarginOnceMore) {
    EXPECT_EQ(canvasFrame({box({10, 20, 100, 50}), box({200, 40, 30, 30})}), (Rect{0, 0, 240, 90}));
    EXPECT_EQ(canvasFrame({box({200, 40, 30, 30}), box({10, 20, 100, 50})}), (Rect{0, 0, 240, 90}));
}

TEST(DashboardSize, TakesEachSideFromTheWidgetThatLiesFarthestOut) {
    // The widest reach, the lowest edge and the nearest margins come from four widgets.
    EXPECT_EQ(canvasFrame({box({5, 50, 10, 10}), box({50, 7, 10, 10}), box({30, 30, 300, 10}), box({30, 30, 10, 200})}),
              (Rect{0, 0, 335, 237}));
}

TEST(DashboardSize, NoWidgetsAndNoSizeIsNothingByNothing) {
    EXPECT_EQ(canvasFrame({}), (Rect{0, 0, 0, 0}));
    const auto dashboard = ZORDashboardPlugIn::initWithAgent(Agent::withName("A"), {});
    EXPECT_EQ(dashboard->editView()->frame(), (Rect{0, 0, 0, 0}));
    EXPECT_EQ(dashboard->title(), "Unnamed");
}

TEST(DashboardSize, NegativeXShrinksTheWidthByThatAmount) {
    EXPECT_EQ(canvasFrame({box({-30, 20, 100, 50}), box({200, 40, 30, 30})}), (Rect{0, 0, 200, 90}));
}

TEST(DashboardSize, NegativeYShrinksTheHeightByThatAmount) {
    EXPECT_EQ(canvasFrame({box({10, -15, 100, 50}), box({200, 40, 30, 30})}), (Rect{0, 0, 240, 55}));
}

TEST(DashboardSize, FarthestEdgesAreNeverLessThanZero) {
    EXPECT_EQ(canvasFrame({box({-50, -40, 20, 10})}), (Rect{0, 0, -50, -40}));
}

TEST(DashboardSize, AWidgetAtTheLargestFloatLeavesNoMargin) {
    constexpr double largest = std::numeric_limits<double>::max();
    EXPECT_EQ(canvasFrame({box({largest, 10, 0, 20})}), (Rect{0, 0, largest, 40}));
}

TEST(DashboardSize, ZeroWidthDropsTheHeightGiven) {
    EXPECT_EQ(canvasFrame({box({10, 20, 100, 50})}, {0, 300}), (Rect{0, 0, 120, 90}));
}

TEST(DashboardSize, ZeroHeightDropsTheWidthGiven) {
    EXPECT_EQ(canvasFrame({box({10, 20, 100, 50})}, {300, 0}), (Rect{0, 0, 120, 90}));
    EXPECT_EQ(canvasFrame({}, {0, 300}), (Rect{0, 0, 0, 0}));
}

TEST(DashboardSize, GivenSizeIsKeptWhateverTheWidgetsReach) {
    EXPECT_EQ(canvasFrame({box({10, 20, 1000, 500})}, {300, 200}), (Rect{0, 0, 300, 200}));
    EXPECT_EQ(canvasFrame({box({10, 20, 100, 50})}, {-5, 0.25}), (Rect{0, 0, -5, 0.25}));
}

TEST(DashboardSize, NotANumberCountsAsGiven) {
    const Rect wide = canvasFrame({box({10, 20, 100, 50})}, {nan, 300});
    EXPECT_TRUE(std::isnan(wide.width));
    EXPECT_EQ(wide.height, 300);
    const Rect high = canvasFrame({box({10, 20, 100, 50})}, {400, nan});
    EXPECT_EQ(high.width, 400);
    EXPECT_TRUE(std::isnan(high.height));
}

TEST(DashboardSize, NotANumberBesideZeroIsComputed) {
    EXPECT_EQ(canvasFrame({box({10, 20, 100, 50})}, {nan, 0}), (Rect{0, 0, 120, 90}));
}

TEST(DashboardCreation, PutsTheWidgetsOnTheCanvasInOrder) {
    const auto a = box({0, 0, 10, 10}), b = box({5, 5, 10, 10}), c = box({9, 9, 10, 10});
    b->setZOrder(40);
    const auto dashboard = dashboardOf({a, b, c});
    EXPECT_THAT(widgetsOn(dashboard->editView()), ElementsAre(a, b, c));
    EXPECT_THAT(test::zOrdersOn(dashboard->editView()), ElementsAre(1, 2, 3));
    EXPECT_THAT(*dashboard->widgets(), ElementsAre(a, b, c));
}

TEST(DashboardCreation, WidgetsStayAbsentWhereNoneWereHanded) {
    const auto agent = Agent::withName("A");
    EXPECT_FALSE(ZORDashboardPlugIn::initWithAgent(agent, {})->widgets());
    EXPECT_FALSE(ZORDashboardPlugIn::initWithAgent(agent, {}, std::nullopt, {300, 200})->widgets());
    EXPECT_TRUE(dashboardOf({})->widgets());
}

TEST(DashboardCreation, KeepsAgentAndSiteWindowController) {
    const auto agent = Agent::withName("A");
    const auto controller = std::make_shared<SiteWindowController>();
    const auto dashboard = ZORDashboardPlugIn::initWithAgent(agent, controller);
    EXPECT_EQ(dashboard->agent(), agent);
    EXPECT_EQ(dashboard->siteWindowController(), controller);
}

TEST(DashboardCreation, BeginsUnnamedInViewModeWithNothingSelectedOrUndone) {
    const auto dashboard = dashboardOf({box({10, 20, 100, 50})});
    EXPECT_EQ(dashboard->title(), "Unnamed");
    EXPECT_TRUE(dashboard->selectedObjects().empty());
    EXPECT_FALSE(dashboard->editView()->editMode());
    ASSERT_TRUE(dashboard->undoManager());
    EXPECT_EQ(dashboard->undoManager()->depth(), 0);
    EXPECT_FALSE(dashboard->propertyPanelController());
    EXPECT_FALSE(dashboard->shapeLayer());
    EXPECT_FALSE(dashboard->mouseCoordinateView());
    EXPECT_FALSE(dashboard->isViewLoaded());
}

TEST(DashboardCreation, EachDashboardHasAnUndoHistoryOfItsOwn) {
    EXPECT_NE(dashboardOf({})->undoManager(), dashboardOf({})->undoManager());
}

TEST(DashboardCreation, IsMadeByTheNameOfItsClass) {
    const auto* record = ClassRegistry::shared().find("ZORDashboardPlugIn");
    ASSERT_TRUE(record);
    const auto agent = Agent::withName("A");
    const std::vector<Value> given{agent, std::make_shared<SiteWindowController>(),
                                   Value::Array{box({10, 20, 100, 50}), box({200, 40, 30, 30})}, Size{}};
    const auto whole = std::dynamic_pointer_cast<ZORDashboardPlugIn>(record->initializer()(given));
    ASSERT_TRUE(whole);
    EXPECT_EQ(whole->editView()->frame(), (Rect{0, 0, 240, 90}));
    const auto bare = std::dynamic_pointer_cast<ZORDashboardPlugIn>(record->initializer()(std::span(given).first(2)));
    ASSERT_TRUE(bare);
    EXPECT_EQ(bare->agent(), agent);
    EXPECT_EQ(bare->editView()->frame(), (Rect{0, 0, 0, 0}));
}

}  // namespace
}  // namespace zor
