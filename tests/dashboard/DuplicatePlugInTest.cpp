#include "tests/dashboard/EditorFixture.h"

namespace zor {
namespace {

class DuplicatePlugIn : public test::EditorTest {
protected:
    DuplicatePlugIn() {
        dashboard->setTitle("Weather");
        controller->addPlugIn(dashboard, true);
    }
    std::shared_ptr<ZORDashboardPlugIn> duplicate() const {
        return std::dynamic_pointer_cast<ZORDashboardPlugIn>(controller->plugIns().at(1));
    }
};

TEST_F(DuplicatePlugIn, AddsACopyNamedUniquelyAndSelectsIt) {
    dashboard->duplicatePlugIn({});
    ASSERT_EQ(controller->plugIns().size(), 2u);
    EXPECT_EQ(duplicate()->title(), "Weather 2");
    EXPECT_EQ(dashboard->title(), "Weather");
    EXPECT_EQ(controller->selectedPlugIn(), duplicate());
    EXPECT_EQ(duplicate()->agent(), agent);
}

TEST_F(DuplicatePlugIn, TheCopyHasTheSameWidgetsOfItsOwn) {
    dashboard->duplicatePlugIn({});
    const auto widgets = test::widgetsOn(duplicate()->editView());
    EXPECT_EQ(test::framesOf(widgets), test::framesOf({a, b, c}));
    EXPECT_NE(widgets[0], a);
    EXPECT_EQ(test::widgetsOn(canvas), (WidgetList{a, b, c}));
}

TEST_F(DuplicatePlugIn, IsOfferedByThePlugInsOwnMenu) {
    const auto own = dashboard->menu();
    ASSERT_TRUE(own);
    EXPECT_EQ(own->title(), "");
    ASSERT_EQ(own->items().size(), 1u);
    EXPECT_EQ(own->items()[0].title, "Duplicate");
    EXPECT_EQ(own->items()[0].action, "duplicatePlugIn:");
    EXPECT_EQ(own->items()[0].keyEquivalent, "");
    EXPECT_EQ(own->items()[0].target.lock(), dashboard);
    EXPECT_NE(dashboard->menu(), own);
    EXPECT_TRUE(own->performItemWithTitle("Duplicate"));
    EXPECT_EQ(controller->plugIns().size(), 2u);
}

}  // namespace
}  // namespace zor
