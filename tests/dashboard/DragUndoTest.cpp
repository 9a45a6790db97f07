#include "tests/dashboard/EditorFixture.h"

namespace zor {
namespace {

class DragUndo : public test::EditorTest {
protected:
    void moveAll() {
        dashboard->selectAllObjects();
        press(onA);
        drag({130, 140});
        drag({150, 170});
        release({150, 170});
    }
};

TEST_F(DragUndo, OneStepPutsAllBack) {
    moveAll();
    ASSERT_EQ(a->frame(), (Rect{130, 150, 80, 60}));
    ASSERT_EQ(b->frame(), (Rect{330, 150, 80, 60}));
    ASSERT_EQ(c->frame(), (Rect{130, 350, 80, 60}));
    dashboard->undo({});
    EXPECT_EQ(a->frame(), (Rect{100, 100, 80, 60}));
    EXPECT_EQ(b->frame(), (Rect{300, 100, 80, 60}));
    EXPECT_EQ(c->frame(), (Rect{100, 300, 80, 60}));
    EXPECT_EQ(undoSteps(), 0);
}

TEST_F(DragUndo, CannotBeRedone) {
    moveAll();
    dashboard->undo({});
    EXPECT_FALSE(dashboard->undoManager()->canRedo());
    dashboard->redo({});
    EXPECT_EQ(a->frame(), (Rect{100, 100, 80, 60}));
}

TEST_F(DragUndo, RestoresTheSizeTooAndPassesOverWhatIsGone) {
    moveAll();
    b->removeFromSuperview();
    c->setFrame({1, 2, 3, 4});
    dashboard->undo({});
    EXPECT_EQ(a->frame(), (Rect{100, 100, 80, 60}));
    EXPECT_EQ(b->frame(), (Rect{330, 150, 80, 60}));
    EXPECT_EQ(c->frame(), (Rect{100, 300, 80, 60}));
}

TEST_F(DragUndo, AClicksStepRestoresNothing) {
    click(onA);
    a->setFrame({1, 2, 30, 40});
    dashboard->undo({});
    EXPECT_EQ(a->frame(), (Rect{1, 2, 30, 40}));
    EXPECT_EQ(undoSteps(), 0);
}

TEST_F(DragUndo, FractionsComeBackExactly) {
    a->setFrame({0.1, 100.30000000000001, 80.7, 60});
    press({20, 120});
    drag({21.3, 121.7});
    release({21.3, 121.7});
    dashboard->undo({});
    EXPECT_EQ(a->frame(), (Rect{0.1, 100.30000000000001, 80.7, 60}));
}

TEST_F(DragUndo, AResizingByTheHandleComesBack) {
    click(onA);
    press({175, 155});
    drag({195, 185});
    release({190, 180});
    ASSERT_EQ(a->frame(), (Rect{100, 100, 100, 90}));
    dashboard->undo({});
    EXPECT_EQ(a->frame(), (Rect{100, 100, 80, 60}));
}

TEST_F(DragUndo, EachDragIsAStepOfItsOwn) {
    press(onA);
    drag({130, 120});
    release({130, 120});
    press({130, 120});
    drag({160, 120});
    release({160, 120});
    ASSERT_EQ(a->frame().x, 140);
    dashboard->undo({});
    EXPECT_EQ(a->frame().x, 110);
    dashboard->undo({});
    EXPECT_EQ(a->frame().x, 100);
}

TEST_F(DragUndo, TheStepsDoNotKeepTheDashboard) {
    moveAll();
    const auto history = dashboard->undoManager();
    dashboard.reset();
    history->undo();
    EXPECT_EQ(a->frame(), (Rect{130, 150, 80, 60}));
}

}  // namespace
}  // namespace zor
