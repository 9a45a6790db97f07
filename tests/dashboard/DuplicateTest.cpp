#include "tests/dashboard/EditorFixture.h"

namespace zor {
namespace {

using test::framesOf;
using test::widgetsOn;
using ::testing::ElementsAre;

class Duplicate : public test::EditorTest {
protected:
    /// The widgets above the three.
    WidgetList copies() const {
        const auto all = widgetsOn(canvas);
        return {all.begin() + 3, all.end()};
    }
};

TEST_F(Duplicate, LiesTenPointsRightAndTenHigher) {
    a->setFrame({100, 100, 40, 40});
    dashboard->selectObject(a);
    dashboard->duplicateObject({});
    ASSERT_EQ(copies().size(), 1u);
    EXPECT_EQ(copies()[0]->frame(), (Rect{110, 90, 40, 40}));
    EXPECT_EQ(a->frame(), (Rect{100, 100, 40, 40}));
}

TEST_F(Duplicate, IsTheOnlySelectionAndAboveAll) {
    dashboard->selectObject(a);
    dashboard->duplicateObject({});
    EXPECT_EQ(selection(), copies());
    EXPECT_FALSE(a->selected());
    EXPECT_TRUE(copies()[0]->selected());
    EXPECT_THAT(test::zOrdersOn(canvas), ElementsAre(1, 2, 3, 4));
}

TEST_F(Duplicate, OfSeveralFollowsTheSelectionsOrder) {
    dashboard->selectObject(c);
    dashboard->selectObject(a);
    dashboard->selectObject(b);
    dashboard->duplicateObject({});
    EXPECT_EQ(framesOf(copies()), (std::vector<Rect>{{110, 290, 80, 60}, {110, 90, 80, 60}, {310, 90, 80, 60}}));
    EXPECT_EQ(selection(), copies());
    EXPECT_FALSE(a->selected() || b->selected() || c->selected());
}

TEST_F(Duplicate, OneUndoRemovesAllCopiesAndLeavesTheSourcesUnselected) {
    dashboard->selectAllObjects();
    dashboard->duplicateObject({});
    ASSERT_EQ(copies().size(), 3u);
    EXPECT_EQ(undoSteps(), 1);
    dashboard->undo({});
    EXPECT_THAT(widgetsOn(canvas), ElementsAre(a, b, c));
    EXPECT_FALSE(a->selected() || b->selected() || c->selected());
    EXPECT_FALSE(dashboard->undoManager()->canRedo());
}

TEST_F(Duplicate, MayReachBeyondTheCanvas) {
    a->setFrame({790, 0, 40, 40});
    dashboard->selectObject(a);
    dashboard->duplicateObject({});
    EXPECT_EQ(copies()[0]->frame(), (Rect{800, -10, 40, 40}));
}

TEST_F(Duplicate, IsAnIndependentWidgetWithTheSameContent) {
    const auto source = test::label({10, 20, 100, 30}, "Hello");
    source->setTitle("Greeting");
    source->setEditable(true);
    canvas->addSubview(source);
    dashboard->selectObject(source);
    dashboard->duplicateObject({});
    const auto copy = selection().at(0);
    EXPECT_EQ(copy->instrument()->text(), "Hello");
    EXPECT_EQ(copy->title(), "Greeting");
    EXPECT_TRUE(copy->editable());
    EXPECT_NE(copy->hash(), source->hash());
    copy->targetView()->setValueForKey("stringToDraw", "Bye");
    EXPECT_EQ(source->instrument()->text(), "Hello");
}

TEST_F(Duplicate, OfNothingRegistersAnEmptyStepAndNumbersNothing) {
    a->setZOrder(-4);
    dashboard->duplicateObject({});
    EXPECT_THAT(widgetsOn(canvas), ElementsAre(a, b, c));
    EXPECT_THAT(test::zOrdersOn(canvas), ElementsAre(-4, 2, 3));
    EXPECT_EQ(undoSteps(), 1);
    dashboard->undo({});
    EXPECT_THAT(widgetsOn(canvas), ElementsAre(a, b, c));
}

}  // namespace
}  // namespace zor
