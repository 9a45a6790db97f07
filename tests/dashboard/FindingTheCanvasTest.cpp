#include "tests/dashboard/DashboardSupport.h"

namespace zor {
namespace {

std::shared_ptr<View> viewOf(const std::vector<std::shared_ptr<View>>& children) {
    auto view = std::make_shared<View>(Rect{0, 0, 100, 100});
    for (const auto& child : children) view->addSubview(child);
    return view;
}

class FindingTheCanvas : public ::testing::Test {
protected:
    static std::shared_ptr<ZORDashboardEditView> in(const std::shared_ptr<View>& view) {
        return ZORDashboardPlugIn::dashboardEditViewFromView(view);
    }

    std::shared_ptr<ZORDashboardEditView> one = test::canvasOf({});
    std::shared_ptr<ZORDashboardEditView> two = test::canvasOf({});
};

TEST_F(FindingTheCanvas, SearchesTheWholeSubtree) {
    EXPECT_EQ(in(viewOf({one})), one);
    EXPECT_EQ(in(viewOf({viewOf({}), viewOf({viewOf({}), viewOf({one})})})), one);
}

TEST_F(FindingTheCanvas, ALaterChildThatIsACanvasWinsOverADeeperOneBefore) {
    EXPECT_EQ(in(viewOf({viewOf({viewOf({one})}), two})), two);
    EXPECT_EQ(in(viewOf({viewOf({one}), viewOf({}), two})), two);
}

TEST_F(FindingTheCanvas, TheRuleHoldsWithinASubtreeToo) {
    EXPECT_EQ(in(viewOf({viewOf({viewOf({one}), two}), viewOf({})})), two);
}

TEST_F(FindingTheCanvas, TheFirstChildThatIsACanvasWins) {
    EXPECT_EQ(in(viewOf({one, two})), one);
}

TEST_F(FindingTheCanvas, OfTwoDeepOnesTheFirstIsRemembered) {
    EXPECT_EQ(in(viewOf({viewOf({one}), viewOf({two})})), one);
    EXPECT_EQ(in(viewOf({viewOf({viewOf({one})}), viewOf({two})})), one);
}

TEST_F(FindingTheCanvas, ATreeWithoutOneYieldsNothing) {
    EXPECT_EQ(in(viewOf({})), nullptr);
    EXPECT_EQ(in(viewOf({viewOf({viewOf({})}), test::box({0, 0, 10, 10})})), nullptr);
    EXPECT_EQ(in(nullptr), nullptr);
}

TEST_F(FindingTheCanvas, TheViewItselfIsNotAsked) {
    EXPECT_EQ(in(one), nullptr);
}

TEST_F(FindingTheCanvas, FindsTheHostedCanvas) {
    const auto dashboard = test::dashboardOf({test::box({10, 20, 100, 50})});
    EXPECT_EQ(in(dashboard->view()), dashboard->editView());
}

}  // namespace
}  // namespace zor
