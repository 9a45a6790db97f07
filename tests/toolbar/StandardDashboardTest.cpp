#include "tests/toolbar/ToolbarSupport.h"

namespace zor {
namespace {

using test::box;
using test::widgetsOn;
using ::testing::ElementsAre;

class StandardDashboard : public test::ToolbarTest {};

TEST_F(StandardDashboard, HoldsTheStationsOwnWidgets) {
    const auto a = box({10, 20, 100, 50}), b = box({200, 40, 30, 30});
    agent->setDashboardWidgetsMaker([&](Agent&) { return std::vector<std::shared_ptr<View>>{a, b}; });
    const auto dashboard = toolbar->standardDashboardPlugIn();
    ASSERT_TRUE(dashboard);
    EXPECT_EQ(dashboard->title(), "Standard Dashboard");
    EXPECT_THAT(widgetsOn(dashboard->editView()), ElementsAre(a, b));
    EXPECT_EQ(dashboard->editView()->frame(), (Rect{0, 0, 240, 90}));
    EXPECT_TRUE(dashboard->isViewLoaded());
    EXPECT_FALSE(dashboard->editView()->editMode());
    EXPECT_EQ(dashboard->agent(), agent);
    EXPECT_EQ(dashboard->siteWindowController(), controller);
}

TEST_F(StandardDashboard, OfAnAgentWithoutWidgetsIsEmptyAndNothingByNothing) {
    const auto dashboard = toolbar->standardDashboardPlugIn();
    ASSERT_TRUE(dashboard);
    EXPECT_EQ(dashboard->title(), "Standard Dashboard");
    EXPECT_TRUE(widgetsOn(dashboard->editView()).empty());
    EXPECT_EQ(dashboard->editView()->frame(), (Rect{0, 0, 0, 0}));
}

}  // namespace
}  // namespace zor
