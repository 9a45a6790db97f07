#include "tests/dashboard/EditorFixture.h"

namespace zor {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Selection : public test::EditorTest {};

TEST_F(Selection, SelectingMarksAndAppends) {
    dashboard->selectObject(c);
    dashboard->selectObject(a);
    EXPECT_THAT(selection(), ElementsAre(c, a));
    EXPECT_TRUE(c->selected());
    EXPECT_TRUE(a->selected());
    EXPECT_FALSE(b->selected());
}

TEST_F(Selection, SelectingAgainNeitherMovesNorDoubles) {
    dashboard->selectObject(c);
    dashboard->selectObject(a);
    c->setSelected(false);
    dashboard->selectObject(c);
    EXPECT_THAT(selection(), ElementsAre(c, a));
    EXPECT_TRUE(c->selected());
}

TEST_F(Selection, SelectingLeavesTheHandleAlone) {
    dashboard->selectObject(a);
    EXPECT_FALSE(a->allowResize());
    b->setAllowResize(true);
    dashboard->selectObject(b);
    EXPECT_TRUE(b->allowResize());
}

TEST_F(Selection, UnselectingUnmarksRemovesAndLeavesTheHandle) {
    dashboard->selectObject(a);
    dashboard->selectObject(b);
    a->setAllowResize(true);
    dashboard->unselectObject(a);
    EXPECT_THAT(selection(), ElementsAre(b));
    EXPECT_FALSE(a->selected());
    EXPECT_TRUE(a->allowResize());
}

TEST_F(Selection, UnselectingRemovesEveryOccurrence) {
    dashboard->setSelectedObjects({a, b, a});
    dashboard->unselectObject(a);
    EXPECT_THAT(selection(), ElementsAre(b));
}

TEST_F(Selection, UnselectingWhatIsNotListedStillUnmarks) {
    a->setSelected(true);
    dashboard->selectObject(b);
    dashboard->unselectObject(a);
    EXPECT_FALSE(a->selected());
    EXPECT_THAT(selection(), ElementsAre(b));
}

TEST_F(Selection, UnselectingAllClearsMarksAndHandlesOfTheListed) {
    dashboard->selectObject(a);
    dashboard->selectObject(b);
    a->setAllowResize(true);
    b->setAllowResize(true);
    dashboard->unselectAllObjects();
    EXPECT_THAT(selection(), IsEmpty());
    EXPECT_FALSE(a->selected());
    EXPECT_FALSE(b->selected());
    EXPECT_FALSE(a->allowResize());
    EXPECT_FALSE(b->allowResize());
}

TEST_F(Selection, UnselectingAllVisitsNoOtherWidget) {
    c->setSelected(true);
    c->setAllowResize(true);
    dashboard->selectObject(a);
    dashboard->unselectAllObjects();
    EXPECT_TRUE(c->selected());
    EXPECT_TRUE(c->allowResize());
}

TEST_F(Selection, SelectingAllGoesFromTheLowestUp) {
    dashboard->selectAllObjects();
    EXPECT_THAT(selection(), ElementsAre(a, b, c));
}

TEST_F(Selection, SelectingAllKeepsTheEarlierSelectionAtTheHead) {
    dashboard->selectObject(c);
    dashboard->selectObject(a);
    dashboard->selectAllObjects();
    EXPECT_THAT(selection(), ElementsAre(c, a, b));
    EXPECT_FALSE(b->allowResize());
}

TEST_F(Selection, TheContainerIsSelectedLikeAWidget) {
    dashboard->selectObject(container());
    dashboard->selectAllObjects();
    EXPECT_THAT(selection(), ElementsAre(container(), a, b, c));
    EXPECT_TRUE(container()->selected());
    dashboard->unselectObject(container());
    EXPECT_THAT(selection(), ElementsAre(a, b, c));
    EXPECT_FALSE(container()->selected());
}

TEST_F(Selection, RegistersNoUndo) {
    dashboard->selectObject(a);
    dashboard->unselectObject(a);
    dashboard->selectAllObjects();
    dashboard->unselectAllObjects();
    EXPECT_EQ(undoSteps(), 0);
}

TEST_F(Selection, NothingIsSelectedQuietly) {
    dashboard->selectObject({});
    dashboard->unselectObject({});
    EXPECT_THAT(selection(), IsEmpty());
}

}  // namespace
}  // namespace zor
