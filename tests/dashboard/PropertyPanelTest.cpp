#include "tests/dashboard/EditorFixture.h"

namespace zor {
namespace {

class PropertyPanel : public test::EditorTest {
protected:
    PropertyPanel() { toolkit.mouse = {500, 400}; }
    std::shared_ptr<ZORPropertyPanelController> panel() const { return dashboard->propertyPanelController(); }
};

TEST_F(PropertyPanel, FirstOpensWithThePointerInsideItsTopLeftCorner) {
    dashboard->selectObject(a);
    dashboard->showPropertyPanel();
    ASSERT_TRUE(panel());
    ASSERT_EQ(panel()->window()->frame().height, 300);
    EXPECT_EQ(panel()->window()->frame().origin(), (Point{490, 110}));
    EXPECT_EQ(panel()->window()->frame().width, 320);
    EXPECT_TRUE(panel()->isVisible());
}

TEST_F(PropertyPanel, IsForTheEarliestSelectedWidget) {
    dashboard->selectObject(b);
    dashboard->selectObject(a);
    dashboard->showPropertyPanel();
    EXPECT_EQ(panel()->agent(), agent);
    EXPECT_EQ(panel()->targetObject(), b->targetView());
    EXPECT_EQ(panel()->properties(), &b->properties());
}

TEST_F(PropertyPanel, LaterShowingsTurnToAnotherWidgetInPlace) {
    b->setTitle("Wind");
    dashboard->selectObject(a);
    dashboard->showPropertyPanel();
    const auto first = panel();
    int reloads = 0;
    first->setObserver([&] { ++reloads; });
    toolkit.mouse = {50, 60};
    dashboard->unselectAllObjects();
    dashboard->selectObject(b);
    dashboard->showPropertyPanel();
    EXPECT_EQ(panel(), first);
    EXPECT_EQ(panel()->window()->frame().origin(), (Point{490, 110}));
    EXPECT_EQ(panel()->targetObject(), b->targetView());
    EXPECT_EQ(panel()->properties(), &b->properties());
    EXPECT_EQ(panel()->window()->title(), "Wind");
    EXPECT_EQ(reloads, 1);
}

TEST_F(PropertyPanel, AWidgetWithoutATitleLeavesTheOneBefore) {
    a->setTitle("Temperature");
    dashboard->selectObject(a);
    dashboard->showPropertyPanel();
    EXPECT_EQ(panel()->window()->title(), "Temperature");
    dashboard->unselectAllObjects();
    dashboard->selectObject(b);
    dashboard->showPropertyPanel();
    EXPECT_EQ(panel()->window()->title(), "Temperature");
}

TEST_F(PropertyPanel, HiddenItOpensAgainAtItsPlace) {
    dashboard->selectObject(a);
    dashboard->showPropertyPanel();
    panel()->window()->setFrame({7, 8, 320, 300});
    const auto first = panel();
    dashboard->hidePropertyPanel();
    EXPECT_FALSE(panel()->isVisible());
    EXPECT_EQ(panel(), first);
    dashboard->showPropertyPanel();
    EXPECT_TRUE(panel()->isVisible());
    EXPECT_EQ(panel()->window()->frame(), (Rect{7, 8, 320, 300}));
}

TEST_F(PropertyPanel, WithoutASelectionItIsShownForNothing) {
    dashboard->showPropertyPanel();
    ASSERT_TRUE(panel());
    EXPECT_EQ(panel()->targetObject(), nullptr);
    EXPECT_TRUE(panel()->isVisible());
    EXPECT_EQ(panel()->window()->frame().origin(), (Point{490, 110}));
}

TEST_F(PropertyPanel, ShownForNothingItForgetsTheWidgetBefore) {
    dashboard->selectObject(a);
    dashboard->showPropertyPanel();
    dashboard->unselectAllObjects();
    dashboard->showPropertyPanel();
    EXPECT_EQ(panel()->targetObject(), nullptr);
}

TEST_F(PropertyPanel, HidingBeforeAnyShowingDoesNothing) {
    dashboard->hidePropertyPanel();
    EXPECT_FALSE(panel());
}

TEST_F(PropertyPanel, OfTheContainerShowsTheCanvassSettings) {
    dashboard->selectObject(container());
    dashboard->showPropertyPanel();
    EXPECT_EQ(panel()->targetObject(), canvas);
    EXPECT_EQ(panel()->properties(), &canvas->widgetProperties());
}

}  // namespace
}  // namespace zor
