#include "tests/dashboard/EditorFixture.h"

namespace zor {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class RubberBand : public test::EditorTest {};

TEST_F(RubberBand, IsAnAnimatedDashedOutlineOverTheWidgets) {
    dashboard->createRubberBand();
    const auto layer = dashboard->shapeLayer();
    ASSERT_TRUE(layer);
    EXPECT_THAT(canvas->sublayers(), ElementsAre(layer));
    EXPECT_EQ(layer->lineWidth(), 1.0);
    EXPECT_EQ(layer->strokeColor(), Color::black());
    EXPECT_EQ(layer->fillColor(), Color::clear());
    EXPECT_THAT(layer->lineDashPattern(), ElementsAre(10, 5));
    ASSERT_EQ(layer->animations().size(), 1u);
    const auto& [key, animation] = *layer->animations().begin();
    EXPECT_EQ(key, "linePhase");
    EXPECT_EQ(animation.keyPath, "lineDashPhase");
    EXPECT_EQ(animation.fromValue, 0.0);
    EXPECT_EQ(animation.toValue, 15.0);
    EXPECT_EQ(animation.duration, 0.75);
    EXPECT_TRUE(animation.repeatsForever);
}

TEST_F(RubberBand, HasNoPathBeforeTheFirstMove) {
    press(nowhere);
    ASSERT_TRUE(dashboard->shapeLayer());
    EXPECT_FALSE(dashboard->shapeLayer()->path());
}

TEST_F(RubberBand, ANewOneReplacesTheFieldOnly) {
    dashboard->createRubberBand();
    const auto first = dashboard->shapeLayer();
    dashboard->createRubberBand();
    EXPECT_NE(dashboard->shapeLayer(), first);
    EXPECT_THAT(canvas->sublayers(), ElementsAre(first, dashboard->shapeLayer()));
}

TEST_F(RubberBand, ItsPathGoesRoundTheRectangleFromItsOrigin) {
    dashboard->createRubberBand();
    dashboard->moveRubberBand({10, 20, 30, 40});
    EXPECT_THAT(dashboard->shapeLayer()->pathPoints(),
                ElementsAre(Point{10, 20}, Point{40, 20}, Point{40, 60}, Point{10, 60}));
    EXPECT_EQ(dashboard->shapeLayer()->path()->elements().back().verb, Path::Verb::close);
    dashboard->moveRubberBand({10, 20, -5, -6});
    EXPECT_THAT(dashboard->shapeLayer()->pathPoints(),
                ElementsAre(Point{10, 20}, Point{5, 20}, Point{5, 14}, Point{10, 14}));
}

TEST_F(RubberBand, DestroyingRemovesItAndIsSafeWithoutOne) {
    dashboard->createRubberBand();
    dashboard->destroyRubberBand();
    EXPECT_FALSE(dashboard->shapeLayer());
    EXPECT_THAT(canvas->sublayers(), IsEmpty());
    dashboard->destroyRubberBand();
    dashboard->moveRubberBand({1, 2, 3, 4});
    EXPECT_FALSE(dashboard->shapeLayer());
}

TEST_F(RubberBand, IsDrawnFromThePressToThePointer) {
    press(nowhere);
    drag({550, 380});
    EXPECT_THAT(dashboard->shapeLayer()->pathPoints(),
                ElementsAre(Point{600, 400}, Point{550, 400}, Point{550, 380}, Point{600, 380}));
}

TEST_F(RubberBand, SelectsEveryWidgetThatItOverlapsInPart) {
    press({50, 50});
    drag({310, 110});
    EXPECT_THAT(selection(), ElementsAre(a, b));
    EXPECT_TRUE(a->selected());
    EXPECT_FALSE(c->selected());
}

TEST_F(RubberBand, TheMirroredDragSelectsTheSame) {
    press({390, 170});
    drag({170, 150});
    EXPECT_THAT(selection(), ElementsAre(a, b));
    release({170, 150});
    press({250, 50});
    drag({170, 320});
    EXPECT_THAT(selection(), ElementsAre(a, c));
}

TEST_F(RubberBand, TouchingAnEdgeSelectsNothing) {
    press({50, 50});
    drag({100, 200});
    EXPECT_THAT(selection(), IsEmpty());
    drag({100.001, 200});
    EXPECT_THAT(selection(), ElementsAre(a));
}

TEST_F(RubberBand, WithoutWidthOrHeightItSelectsNothing) {
    press({50, 120});
    drag({400, 120});
    EXPECT_THAT(selection(), IsEmpty());
    drag({50, 500});
    EXPECT_THAT(selection(), IsEmpty());
}

TEST_F(RubberBand, ShrinkingLetsGoWhatItNoLongerCovers) {
    press({50, 50});
    drag({400, 400});
    EXPECT_THAT(selection(), ElementsAre(a, b, c));
    drag({200, 200});
    EXPECT_THAT(selection(), ElementsAre(a));
    EXPECT_FALSE(b->selected());
}

TEST_F(RubberBand, WithShiftWhatItTouchedStays) {
    press({50, 50}, shiftKeyMask);
    drag({400, 400}, shiftKeyMask);
    drag({60, 60}, shiftKeyMask);
    EXPECT_THAT(selection(), ElementsAre(a, b, c));
    drag({61, 61});
    EXPECT_THAT(selection(), IsEmpty());
}

TEST_F(RubberBand, ReleasedItGoesAndASoleWidgetOffersItsHandle) {
    press({50, 50});
    drag({200, 200});
    release({200, 200});
    EXPECT_FALSE(dashboard->shapeLayer());
    EXPECT_THAT(canvas->sublayers(), IsEmpty());
    EXPECT_FALSE(dashboard->drawSelectionBox());
    EXPECT_FALSE(dashboard->didDrag());
    EXPECT_THAT(selection(), ElementsAre(a));
    EXPECT_TRUE(a->allowResize());
}

TEST_F(RubberBand, ReleasedOverAWidgetItKeepsTheBandsSelection) {
    press({50, 50});
    drag(onB);
    release(onB);
    EXPECT_THAT(selection(), ElementsAre(a, b));
    EXPECT_FALSE(a->allowResize());
    EXPECT_FALSE(b->allowResize());
}

}  // namespace
}  // namespace zor
