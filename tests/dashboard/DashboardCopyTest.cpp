#include "tests/dashboard/DashboardSupport.h"

namespace zor {
namespace {

using test::box;
using test::dashboardOf;
using test::framesOf;
using test::widgetsOn;
using ::testing::ElementsAre;

class DashboardCopy : public ::testing::Test {
protected:
    std::shared_ptr<ZORDashboardPlugIn> copied() const {
        return std::dynamic_pointer_cast<ZORDashboardPlugIn>(dashboard->copyWithZone());
    }

    std::shared_ptr<ZORWidgetHostView> first = box({10, 20, 100, 50});
    std::shared_ptr<ZORWidgetHostView> second = box({200, 40, 30, 30});
    std::shared_ptr<ZORDashboardPlugIn> dashboard = dashboardOf({first, second});
};

TEST_F(DashboardCopy, HasTheSameTitleAndAnEqualButSeparateCanvas) {
    dashboard->setTitle("Weather");
    const auto copy = copied();
    ASSERT_TRUE(copy);
    EXPECT_EQ(copy->title(), "Weather");
    ASSERT_TRUE(copy->editView());
    EXPECT_NE(copy->editView(), dashboard->editView());
    EXPECT_EQ(copy->editView()->frame(), (Rect{0, 0, 240, 90}));
    EXPECT_EQ(framesOf(widgetsOn(copy->editView())), (std::vector<Rect>{{10, 20, 100, 50}, {200, 40, 30, 30}}));
}

TEST_F(DashboardCopy, ChangingAWidgetOfTheCopyLeavesTheSourceUntouched) {
    const auto copy = copied();
    widgetsOn(copy->editView())[0]->setFrame({1, 2, 3, 4});
    widgetsOn(copy->editView())[1]->removeFromSuperview();
    copy->editView()->setEditMode(true);
    EXPECT_THAT(widgetsOn(dashboard->editView()), ElementsAre(first, second));
    EXPECT_EQ(first->frame(), (Rect{10, 20, 100, 50}));
    EXPECT_FALSE(dashboard->editView()->editMode());
}

TEST_F(DashboardCopy, IsForTheSameAgentAndWindowControllerWithAnIdentifierOfItsOwn) {
    const auto controller = std::make_shared<SiteWindowController>();
    dashboard = ZORDashboardPlugIn::initWithAgent(Agent::withName("A"), controller);
    const auto copy = copied();
    EXPECT_EQ(copy->agent(), dashboard->agent());
    EXPECT_EQ(copy->siteWindowController(), controller);
    EXPECT_NE(copy->uniqueIdentifier(), dashboard->uniqueIdentifier());
}

TEST_F(DashboardCopy, TakesNeitherWidgetsNorSelectionNorHistoryNorPanel) {
    dashboard->selectObject(first);
    dashboard->bringToFront({});
    dashboard->undoManager()->registerUndoWithTarget(dashboard, [](Object&) {});
    dashboard->showPropertyPanel();
    dashboard->setDidDrag(true);
    const auto copy = copied();
    EXPECT_FALSE(copy->widgets());
    EXPECT_TRUE(copy->selectedObjects().empty());
    EXPECT_THAT(test::eachOf(widgetsOn(copy->editView()), &ZORWidgetHostView::selected), ElementsAre(false, false));
    ASSERT_TRUE(copy->undoManager());
    EXPECT_NE(copy->undoManager(), dashboard->undoManager());
    EXPECT_EQ(copy->undoManager()->depth(), 0);
    EXPECT_FALSE(copy->propertyPanelController());
    EXPECT_FALSE(copy->didDrag());
}

TEST_F(DashboardCopy, HostingTheCopyKeepsItsStackingOrder) {
    dashboard->editView()->addSubview(first);
    const auto copy = copied();
    copy->view();
    EXPECT_EQ(framesOf(widgetsOn(copy->editView())), (std::vector<Rect>{{200, 40, 30, 30}, {10, 20, 100, 50}}));
}

TEST_F(DashboardCopy, AnAbsentTitleOrCanvasStaysAbsent) {
    dashboard->setTitle({});
    dashboard->setEditView({});
    const auto copy = copied();
    ASSERT_TRUE(copy);
    EXPECT_FALSE(copy->title());
    EXPECT_FALSE(copy->editView());
}

}  // namespace
}  // namespace zor
