#include "tests/dashboard/DashboardSupport.h"
#include "tests/support/FakeWindowPeer.h"

namespace zor {
namespace {

using test::box;
using test::canvasOf;
using test::editableOn;
using test::widgetsOn;
using test::zOrdersOn;
using ::testing::ElementsAre;

TEST(Canvas, BeginsInViewModeWithoutGridAndWithTheUsualStep) {
    const auto canvas = ZORDashboardEditView::initWithFrame({3, 4, 500, 300});
    EXPECT_EQ(canvas->frame(), (Rect{3, 4, 500, 300}));
    EXPECT_FALSE(canvas->editMode());
    EXPECT_FALSE(canvas->drawGridLines());
    EXPECT_EQ(canvas->step(), 20.0);
    EXPECT_FALSE(canvas->drawPlaceholderImage());
    EXPECT_TRUE(canvas->drawImage());
}

TEST(Canvas, AnswersWhatTheHostAsks) {
    const auto canvas = canvasOf({});
    EXPECT_EQ(canvas->description(), "Edit View");
    EXPECT_EQ(canvas->minWidth(), 3.4028234663852886e38);
    EXPECT_EQ(canvas->minHeight(), 3.4028234663852886e38);
    EXPECT_TRUE(canvas->isFlipped());
    EXPECT_TRUE(canvas->acceptsFirstResponder());
    EXPECT_FALSE(canvas->showPositionProperties());
    EXPECT_EQ(&canvas->widgetProperties(), &canvas->ZORImageView::widgetProperties());
}

TEST(CanvasAdding, NumbersEveryWidgetByItsPosition) {
    const auto a = box({0, 0, 10, 10}), b = box({0, 0, 10, 10}), c = box({0, 0, 10, 10}), d = box({0, 0, 10, 10});
    const auto canvas = canvasOf({a, b, c});
    a->setZOrder(9);
    b->setZOrder(-3);
    c->setZOrder(40);
    d->setZOrder(1);
    canvas->addSubview(d);
    EXPECT_THAT(widgetsOn(canvas), ElementsAre(a, b, c, d));
    EXPECT_THAT(zOrdersOn(canvas), ElementsAre(1, 2, 3, 4));
}

TEST(CanvasAdding, AWidgetThatIsThereMovesToTheTop) {
    const auto a = box({0, 0, 10, 10}), b = box({0, 0, 10, 10}), c = box({0, 0, 10, 10});
    const auto canvas = canvasOf({a, b, c});
    canvas->addSubview(a);
    EXPECT_THAT(widgetsOn(canvas), ElementsAre(b, c, a));
    EXPECT_THAT(zOrdersOn(canvas), ElementsAre(1, 2, 3));
}

TEST(CanvasAdding, SeveralAtOnceAreAddedOneAfterTheOther) {
    const auto a = box({0, 0, 10, 10}), b = box({0, 0, 10, 10}), c = box({0, 0, 10, 10});
    const auto canvas = canvasOf({a, b});
    canvas->addSubviews({c, a});
    EXPECT_THAT(widgetsOn(canvas), ElementsAre(b, c, a));
    EXPECT_THAT(zOrdersOn(canvas), ElementsAre(1, 2, 3));
}

TEST(CanvasAdding, NothingAddedNumbersNothing) {
    const auto canvas = canvasOf({box({0, 0, 10, 10}), box({0, 0, 10, 10})});
    widgetsOn(canvas)[0]->setZOrder(-4);
    canvas->addSubviews({});
    EXPECT_THAT(zOrdersOn(canvas), ElementsAre(-4, 2));
}

TEST(CanvasAdding, WhatIsNoWidgetIsNotTaken) {
    const auto canvas = canvasOf({});
    canvas->addSubview(std::make_shared<View>());
    canvas->addSubview(nullptr);
    EXPECT_TRUE(canvas->subviews().empty());
}

TEST(CanvasAdding, LeavesTheEditableStateAlone) {
    const auto canvas = canvasOf({});
    canvas->setEditMode(true);
    canvas->addSubview(box({0, 0, 10, 10}));
    EXPECT_THAT(editableOn(canvas), ElementsAre(false));
}

TEST(CanvasEditMode, MakesWidgetsEditableAndShowsTheGrid) {
    const auto canvas = canvasOf({box({0, 0, 10, 10}), box({0, 0, 10, 10})});
    canvas->setEditMode(true);
    EXPECT_TRUE(canvas->editMode());
    EXPECT_TRUE(canvas->drawGridLines());
    EXPECT_THAT(editableOn(canvas), ElementsAre(true, true));
}

TEST(CanvasEditMode, LeavingTurnsWidgetsOffButLeavesTheGridSet) {
    const auto canvas = canvasOf({box({0, 0, 10, 10}), box({0, 0, 10, 10})});
    canvas->setEditMode(true);
    canvas->setDrawGridLines(false);
    canvas->setEditMode(false);
    EXPECT_FALSE(canvas->editMode());
    EXPECT_TRUE(canvas->drawGridLines());
    EXPECT_THAT(editableOn(canvas), ElementsAre(false, false));
}

TEST(CanvasEditMode, NoIsEnoughToSetTheGridOfAFreshCanvas) {
    const auto canvas = canvasOf({});
    canvas->setEditMode(false);
    EXPECT_TRUE(canvas->drawGridLines());
}

TEST(CanvasEditMode, TheSameModeAgainStillSpeaksToEveryWidget) {
    const auto canvas = canvasOf({box({0, 0, 10, 10})});
    canvas->setEditMode(true);
    widgetsOn(canvas)[0]->setEditable(false);
    canvas->setDrawGridLines(false);
    canvas->setEditMode(true);
    EXPECT_THAT(editableOn(canvas), ElementsAre(true));
    EXPECT_TRUE(canvas->drawGridLines());
}

class CanvasRedraw : public ::testing::Test {
protected:
    CanvasRedraw() {
        window->setPeer(peer);
        window->setContentView(canvas);
        peer->damage.clear();
    }
    std::shared_ptr<Window> window = std::make_shared<Window>();
    std::shared_ptr<FakeWindowPeer> peer = std::make_shared<FakeWindowPeer>();
    std::shared_ptr<ZORDashboardEditView> canvas = canvasOf({}, {400, 300});
};

TEST_F(CanvasRedraw, EditModeAsksForAllOfIt) {
    canvas->setEditMode(true);
    EXPECT_THAT(peer->damage, ElementsAre(Rect{0, 0, 400, 300}));
    canvas->setEditMode(true);
    EXPECT_EQ(peer->damage.size(), 2u);
}

TEST_F(CanvasRedraw, GridAndStepAskForNone) {
    canvas->setDrawGridLines(true);
    canvas->setStep(7);
    EXPECT_TRUE(peer->damage.empty());
    EXPECT_EQ(canvas->step(), 7);
}

}  // namespace
}  // namespace zor
