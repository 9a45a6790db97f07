#include "tests/dashboard/DashboardSupport.h"

namespace zor {
namespace {

using test::box;
using test::canvasOf;
using test::editableOn;
using test::widgetsOn;
using ::testing::ElementsAre;

std::shared_ptr<ZORDashboardEditView> copyOf(const std::shared_ptr<ZORDashboardEditView>& canvas) {
    return std::dynamic_pointer_cast<ZORDashboardEditView>(canvas->copy());
}

TEST(CanvasCopy, HasFrameImageAndWidgetsOfItsOwn) {
    const auto canvas = canvasOf({box({10, 20, 30, 40}), box({50, 60, 70, 80})});
    canvas->setFrame({0, 0, 640, 480});
    canvas->setImage(Image::plain({64, 48}));
    const auto copy = copyOf(canvas);
    ASSERT_TRUE(copy);
    EXPECT_EQ(copy->frame(), (Rect{0, 0, 640, 480}));
    ASSERT_TRUE(copy->image());
    EXPECT_EQ(copy->image()->size(), (Size{64, 48}));
    EXPECT_EQ(test::framesOf(widgetsOn(copy)), (std::vector<Rect>{{10, 20, 30, 40}, {50, 60, 70, 80}}));
    EXPECT_NE(widgetsOn(copy)[0], widgetsOn(canvas)[0]);
    EXPECT_NE(widgetsOn(copy)[0]->hash(), widgetsOn(canvas)[0]->hash());
    EXPECT_EQ(widgetsOn(canvas).size(), 2u);
    EXPECT_EQ(copy->superview(), nullptr);
    EXPECT_FALSE(copy->drawPlaceholderImage());
}

TEST(CanvasCopy, NumbersTheCopiesFromOne) {
    const auto canvas = canvasOf({box({10, 0, 1, 1}), box({20, 0, 1, 1})});
    widgetsOn(canvas)[0]->setZOrder(9);
    widgetsOn(canvas)[1]->setZOrder(5);
    const auto copy = copyOf(canvas);
    EXPECT_EQ(test::framesOf(widgetsOn(copy)), (std::vector<Rect>{{10, 0, 1, 1}, {20, 0, 1, 1}}));
    EXPECT_THAT(test::zOrdersOn(copy), ElementsAre(1, 2));
    EXPECT_THAT(test::zOrdersOn(canvas), ElementsAre(9, 5));
}

TEST(CanvasCopy, WidgetsKeepTheEditableStateOfTheirOwnCopiesInEditMode) {
    const auto canvas = canvasOf({box({0, 0, 10, 10}), box({0, 0, 10, 10})});
    canvas->setEditMode(true);
    widgetsOn(canvas)[0]->setEditable(false);
    const auto copy = copyOf(canvas);
    EXPECT_TRUE(copy->editMode());
    EXPECT_THAT(editableOn(copy), ElementsAre(false, true));
}

TEST(CanvasCopy, WidgetsKeepTheEditableStateOfTheirOwnCopiesInViewMode) {
    const auto canvas = canvasOf({box({0, 0, 10, 10})});
    widgetsOn(canvas)[0]->setEditable(true);
    EXPECT_THAT(editableOn(copyOf(canvas)), ElementsAre(true));
}

TEST(CanvasCopy, KeepsModeAndGridEachByItself) {
    for (const bool mode : {false, true}) {
        for (const bool grid : {false, true}) {
            const auto canvas = canvasOf({});
            canvas->setEditMode(mode);
            canvas->setDrawGridLines(grid);
            const auto copy = copyOf(canvas);
            EXPECT_EQ(copy->editMode(), mode);
            EXPECT_EQ(copy->drawGridLines(), grid);
        }
    }
}

}  // namespace
}  // namespace zor
