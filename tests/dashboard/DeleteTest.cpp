#include "tests/dashboard/EditorFixture.h"

namespace zor {
namespace {

using test::widgetsOn;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Delete : public test::EditorTest {};

TEST_F(Delete, TakesTheSelectionAway) {
    dashboard->selectObject(c);
    dashboard->selectObject(a);
    dashboard->deleteObject({});
    EXPECT_THAT(widgetsOn(canvas), ElementsAre(b));
    EXPECT_THAT(selection(), IsEmpty());
    EXPECT_FALSE(a->selected());
    EXPECT_FALSE(c->selected());
    EXPECT_EQ(undoSteps(), 1);
}

TEST_F(Delete, UndoBringsThemBackUnselectedOnTopInTheGroupsOrder) {
    dashboard->selectObject(b);
    dashboard->selectObject(a);
    dashboard->deleteObject({});
    dashboard->undo({});
    EXPECT_THAT(widgetsOn(canvas), ElementsAre(c, b, a));
    EXPECT_THAT(test::zOrdersOn(canvas), ElementsAre(1, 2, 3));
    EXPECT_EQ(a->frame(), (Rect{100, 100, 80, 60}));
    EXPECT_EQ(b->frame(), (Rect{300, 100, 80, 60}));
    EXPECT_THAT(selection(), IsEmpty());
    EXPECT_FALSE(a->selected() || b->selected());
    EXPECT_FALSE(dashboard->undoManager()->canRedo());
}

TEST_F(Delete, SparesTheContainerOfACanvas) {
    dashboard->selectObject(container());
    dashboard->selectObject(a);
    dashboard->deleteObject({});
    EXPECT_THAT(widgetsOn(canvas), ElementsAre(b, c));
    EXPECT_EQ(scrollView()->documentView(), container());
    EXPECT_EQ(canvas->superview(), container().get());
    EXPECT_THAT(selection(), IsEmpty());
    EXPECT_TRUE(container()->selected());
    dashboard->undo({});
    EXPECT_THAT(widgetsOn(canvas), ElementsAre(b, c, a));
}

TEST_F(Delete, SparesAWidgetOnTheCanvasThatHostsACanvas) {
    const auto inner = ZORWidgetHostView::initWithFrame({10, 10, 50, 50});
    inner->setTargetView(test::canvasOf({}, {50, 50}));
    canvas->addSubview(inner);
    dashboard->selectObject(inner);
    dashboard->selectObject(b);
    dashboard->deleteObject({});
    EXPECT_THAT(widgetsOn(canvas), ElementsAre(a, c, inner));
    EXPECT_THAT(selection(), IsEmpty());
    EXPECT_TRUE(inner->selected());
}

TEST_F(Delete, MakesTheCanvasFirstResponder) {
    click(onA);
    dashboard->deleteObject({});
    EXPECT_EQ(window->firstResponder(), canvas.get());
}

TEST_F(Delete, HidesThePropertyPanel) {
    click(onA);
    dashboard->showPropertyPanel();
    dashboard->deleteObject({});
    EXPECT_FALSE(dashboard->propertyPanelController()->isVisible());
}

TEST_F(Delete, OfNothingRegistersAStepThatAddsAndNumbersNothing) {
    a->setZOrder(-4);
    dashboard->deleteObject({});
    EXPECT_EQ(undoSteps(), 1);
    dashboard->undo({});
    EXPECT_THAT(widgetsOn(canvas), ElementsAre(a, b, c));
    EXPECT_THAT(test::zOrdersOn(canvas), ElementsAre(-4, 2, 3));
}

TEST_F(Delete, EachDeletionComesBackByItself) {
    dashboard->selectObject(a);
    dashboard->deleteObject({});
    dashboard->selectObject(b);
    dashboard->deleteObject({});
    EXPECT_THAT(widgetsOn(canvas), ElementsAre(c));
    dashboard->undo({});
    EXPECT_THAT(widgetsOn(canvas), ElementsAre(c, b));
    dashboard->undo({});
    EXPECT_THAT(widgetsOn(canvas), ElementsAre(c, b, a));
}

}  // namespace
}  // namespace zor
