#include "tests/dashboard/EditorFixture.h"

namespace zor {
namespace {

using test::editableOn;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class EditMode : public test::EditorTest {};

TEST_F(EditMode, EnteringMakesWidgetsEditableAndShowsTheGrid) {
    EXPECT_TRUE(canvas->editMode());
    EXPECT_TRUE(canvas->drawGridLines());
    EXPECT_THAT(editableOn(canvas), ElementsAre(true, true, true));
}

TEST_F(EditMode, EnteringAgainSwitchesTheGridOnAgain) {
    canvas->setDrawGridLines(false);
    dashboard->editDashboard({});
    EXPECT_TRUE(canvas->editMode());
    EXPECT_TRUE(canvas->drawGridLines());
}

TEST_F(EditMode, LeavingClearsSelectionModeGridAndPanel) {
    click(onA);
    click(onB, shiftKeyMask);
    dashboard->showPropertyPanel();
    ASSERT_EQ(selection().size(), 2u);
    dashboard->exitEditMode({});
    EXPECT_THAT(selection(), IsEmpty());
    EXPECT_FALSE(a->selected());
    EXPECT_FALSE(b->selected());
    EXPECT_FALSE(canvas->editMode());
    EXPECT_FALSE(canvas->drawGridLines());
    EXPECT_THAT(editableOn(canvas), ElementsAre(false, false, false));
    EXPECT_FALSE(dashboard->propertyPanelController()->isVisible());
}

TEST_F(EditMode, LeavingTwiceIsHarmless) {
    dashboard->exitEditMode({});
    dashboard->exitEditMode({});
    EXPECT_FALSE(canvas->editMode());
    EXPECT_FALSE(canvas->drawGridLines());
}

TEST_F(EditMode, TheSenderIsIgnored) {
    dashboard->performWithSender("exitEditMode:", canvas);
    EXPECT_FALSE(canvas->editMode());
    dashboard->performWithSender("editDashboard:", a);
    EXPECT_TRUE(canvas->editMode());
}

}  // namespace
}  // namespace zor
