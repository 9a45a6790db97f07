#include "tests/toolbar/ToolbarSupport.h"

namespace zor {
namespace {

using test::widgetsOn;

class CleanSlate : public test::ToolbarTest {
protected:
    std::shared_ptr<ZORDashboardPlugIn> dashboard = toolbar->cleanSlatePlugIn();
};

TEST_F(CleanSlate, IsABlankDashboardInEditMode) {
    EXPECT_EQ(dashboard->title(), "Blank");
    EXPECT_EQ(dashboard->editView()->frame(), (Rect{0, 0, 1024, 768}));
    EXPECT_TRUE(dashboard->editView()->editMode());
    EXPECT_TRUE(dashboard->editView()->drawGridLines());
    EXPECT_TRUE(dashboard->isViewLoaded());
    EXPECT_EQ(dashboard->agent(), agent);
    EXPECT_EQ(dashboard->siteWindowController(), controller);
}

TEST_F(CleanSlate, HoldsOneLabelATenthWiderThanItsText) {
    const auto widgets = widgetsOn(dashboard->editView());
    ASSERT_EQ(widgets.size(), 1u);
    // 19 characters of 14 points, a line of 1.2 times 28.
    const Rect frame = widgets[0]->frame();
    EXPECT_EQ(frame.origin(), (Point{10, 12}));
    EXPECT_DOUBLE_EQ(frame.width, 292.6);
    EXPECT_DOUBLE_EQ(frame.height, 33.6);
    EXPECT_TRUE(widgets[0]->editable());
}

TEST_F(CleanSlate, TheLabelAsksForATitle) {
    const auto label = targetOf(widgetsOn(dashboard->editView()).at(0));
    ASSERT_TRUE(label);
    EXPECT_EQ(label->stringToDraw(), "<INSERT TITLE HERE>");
    EXPECT_EQ(label->text(), "<INSERT TITLE HERE>");
    EXPECT_FALSE(label->useProperty());
    EXPECT_EQ(label->alignment(), TextAlignment::center);
    EXPECT_EQ(label->font(), (Font{.family = "Helvetica Neue", .size = 28}));
}

}  // namespace
}  // namespace zor
