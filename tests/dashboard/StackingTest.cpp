#include "tests/dashboard/EditorFixture.h"

namespace zor {
namespace {

using test::widgetsOn;
using test::zOrdersOn;
using ::testing::ElementsAre;

class Stacking : public test::EditorTest {
protected:
    void number(std::int64_t numberA, std::int64_t numberB, std::int64_t numberC) {
        a->setZOrder(numberA);
        b->setZOrder(numberB);
        c->setZOrder(numberC);
    }
};

TEST_F(Stacking, TheLowestBroughtToTheFrontIsDrawnLast) {
    number(0, 1, 2);
    dashboard->selectObject(a);
    dashboard->bringToFront({});
    EXPECT_EQ(a->zOrder(), 3);
    EXPECT_THAT(widgetsOn(canvas), ElementsAre(b, c, a));
    EXPECT_THAT(zOrdersOn(canvas), ElementsAre(1, 2, 3));
}

TEST_F(Stacking, TheHighestSentToTheBackIsDrawnFirst) {
    number(0, 1, 2);
    dashboard->selectObject(c);
    dashboard->sendToBack({});
    EXPECT_EQ(c->zOrder(), -1);
    EXPECT_THAT(widgetsOn(canvas), ElementsAre(c, a, b));
}

TEST_F(Stacking, OfSeveralBroughtForwardTheLastSelectedIsOnTop) {
    number(1, 5, 7);
    dashboard->selectObject(b);
    dashboard->selectObject(a);
    dashboard->bringToFront({});
    EXPECT_THAT(widgetsOn(canvas), ElementsAre(c, b, a));
    EXPECT_THAT(zOrdersOn(canvas), ElementsAre(7, 8, 9));
}

TEST_F(Stacking, OfSeveralSentBackTheLastSelectedIsUnderneath) {
    number(0, 1, 2);
    dashboard->selectObject(b);
    dashboard->selectObject(c);
    dashboard->sendToBack({});
    EXPECT_THAT(widgetsOn(canvas), ElementsAre(c, b, a));
    EXPECT_THAT(zOrdersOn(canvas), ElementsAre(-2, -1, 0));
}

TEST_F(Stacking, TheTopmostAndTheLowestStillGetNewNumbers) {
    dashboard->selectObject(c);
    dashboard->bringToFront({});
    EXPECT_THAT(zOrdersOn(canvas), ElementsAre(1, 2, 4));
    dashboard->unselectAllObjects();
    dashboard->selectObject(a);
    dashboard->sendToBack({});
    dashboard->sendToBack({});
    EXPECT_THAT(zOrdersOn(canvas), ElementsAre(-1, 2, 4));
    EXPECT_THAT(widgetsOn(canvas), ElementsAre(a, b, c));
}

TEST_F(Stacking, TheNextInsertionRenumbersWithoutChangingTheOrder) {
    dashboard->selectObject(c);
    dashboard->sendToBack({});
    dashboard->addLED({});
    EXPECT_THAT(zOrdersOn(canvas), ElementsAre(1, 2, 3, 4));
    EXPECT_EQ(widgetsOn(canvas)[0], c);
}

TEST_F(Stacking, RegistersNoUndoAndKeepsTheSelection) {
    dashboard->selectObject(c);
    dashboard->selectObject(a);
    dashboard->bringToFront({});
    dashboard->sendToBack({});
    EXPECT_EQ(undoSteps(), 0);
    EXPECT_THAT(selection(), ElementsAre(c, a));
}

TEST_F(Stacking, WithoutASelectionNothingChanges) {
    number(4, 5, 9);
    dashboard->bringToFront({});
    dashboard->sendToBack({});
    EXPECT_THAT(zOrdersOn(canvas), ElementsAre(4, 5, 9));
}

TEST_F(Stacking, ComparesWithSigns) {
    number(-1, 1, 1);
    EXPECT_EQ(compareViews(*a, *b), -1);
    EXPECT_EQ(compareViews(*b, *a), 1);
    EXPECT_EQ(compareViews(*b, *c), 0);
    a->setZOrder(std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(compareViews(*a, *b), -1);
    EXPECT_EQ(compareViews(*b, *a), 1);
}

}  // namespace
}  // namespace zor
