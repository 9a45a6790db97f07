#include "tests/dashboard/EditorFixture.h"

namespace zor {
namespace {

class HitTesting : public test::EditorTest {};

TEST_F(HitTesting, OfOverlappingWidgetsTheLaterOneIsHit) {
    b->setFrame({150, 130, 80, 60});
    EXPECT_EQ(dashboard->objectUnderPoint({160, 140}), b);
    EXPECT_EQ(dashboard->objectUnderPoint({110, 110}), a);
    canvas->addSubview(a);
    EXPECT_EQ(dashboard->objectUnderPoint({160, 140}), a);
}

TEST_F(HitTesting, StackingNumbersMakeNoDifference) {
    b->setFrame({150, 130, 80, 60});
    a->setZOrder(99);
    EXPECT_EQ(dashboard->objectUnderPoint({160, 140}), b);
}

TEST_F(HitTesting, LeftAndTopEdgesAreInsideRightAndBottomOutside) {
    EXPECT_EQ(dashboard->objectUnderPoint({100, 100}), a);
    EXPECT_EQ(dashboard->objectUnderPoint({179.999, 159.999}), a);
    EXPECT_EQ(dashboard->objectUnderPoint({180, 120}), nullptr);
    EXPECT_EQ(dashboard->objectUnderPoint({120, 160}), nullptr);
}

TEST_F(HitTesting, AnEmptyWidgetContainsNothing) {
    a->setFrame({100, 100, 0, 60});
    EXPECT_EQ(dashboard->objectUnderPoint({100, 100}), nullptr);
}

TEST_F(HitTesting, ThePointIsKeptWhateverItFinds) {
    dashboard->objectUnderPoint({120, 121});
    EXPECT_EQ(dashboard->clickOffsetX(), 120);
    EXPECT_EQ(dashboard->clickOffsetY(), 121);
    EXPECT_EQ(dashboard->objectUnderPoint({600, 401}), nullptr);
    EXPECT_EQ(dashboard->clickOffsetX(), 600);
    EXPECT_EQ(dashboard->clickOffsetY(), 401);
}

TEST_F(HitTesting, TheMousesPlaceIsThatOnTheCanvas) {
    EXPECT_EQ(dashboard->objectUnderMouse(mouse(EventType::mouseUp, onB)), b);
    EXPECT_EQ(dashboard->clickOffsetX(), 320);
    EXPECT_EQ(dashboard->clickOffsetY(), 120);
}

TEST_F(HitTesting, ScrollingMovesTheCanvasUnderTheMouse) {
    dashboard->view()->setFrame({0, 0, 400, 300});
    const auto event = Event::mouse(EventType::mouseUp, {120, 120}, 0, 1);
    const auto before = canvas->convertPointFromView({120, 120}, nullptr);
    scrollView()->setContentOffset({50, 30});
    dashboard->objectUnderMouse(event);
    EXPECT_EQ(dashboard->clickOffsetX(), before.x + 50);
    EXPECT_EQ(dashboard->clickOffsetY(), before.y + 30);
}

}  // namespace
}  // namespace zor
