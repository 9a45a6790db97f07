#include "tests/dashboard/DashboardSupport.h"

namespace zor {
namespace {

using test::box;
using test::canvasOf;
using test::DictionaryCoder;
using test::editableOn;
using test::roundTrip;
using test::widgetsOn;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::Not;

std::shared_ptr<ZORDashboardEditView> canvasRead(Value::Dictionary given) {
    DictionaryCoder decoder(std::move(given));
    auto canvas = std::make_shared<ZORDashboardEditView>();
    return canvas->initWithCoder(decoder) ? canvas : nullptr;
}

TEST(CanvasWriting, FollowsTheBaseClassWithModeThenGrid) {
    const auto canvas = canvasOf({box({0, 0, 10, 10})});
    canvas->setEditMode(true);
    test::WritingOrder ours, theirs;
    canvas->encodeWithCoder(ours);
    canvas->ZORImageView::encodeWithCoder(theirs);
    auto expected = theirs.keys();
    expected.insert(expected.end(), {"editMode", "drawGridLines"});
    EXPECT_EQ(ours.keys(), expected);
    EXPECT_EQ(ours.valueOf("editMode"), Value(true));
    EXPECT_EQ(ours.valueOf("drawGridLines"), Value(true));
}

TEST(CanvasWriting, LeavesTheStepOut) {
    const auto canvas = canvasOf({});
    canvas->setStep(7);
    test::WritingOrder coder;
    canvas->encodeWithCoder(coder);
    EXPECT_THAT(coder.keys(), Not(Contains("step")));
    EXPECT_EQ(roundTrip(canvas)->step(), 20.0);
}

TEST(CanvasArchive, EditModeWithoutGridReadsBackSo) {
    const auto canvas = canvasOf({box({0, 0, 10, 10}), box({20, 0, 10, 10})});
    canvas->setEditMode(true);
    canvas->setDrawGridLines(false);
    const auto read = roundTrip(canvas);
    ASSERT_TRUE(read);
    EXPECT_TRUE(read->editMode());
    EXPECT_FALSE(read->drawGridLines());
    EXPECT_THAT(editableOn(read), ElementsAre(true, true));
}

TEST(CanvasArchive, ViewModeWithGridReadsBackSo) {
    const auto canvas = canvasOf({});
    canvas->setDrawGridLines(true);
    const auto read = roundTrip(canvas);
    EXPECT_FALSE(read->editMode());
    EXPECT_TRUE(read->drawGridLines());
}

TEST(CanvasArchive, TheModeDecidesWhetherWidgetsAreEditable) {
    const auto canvas = canvasOf({box({0, 0, 10, 10})});
    widgetsOn(canvas)[0]->setEditable(true);
    EXPECT_THAT(editableOn(roundTrip(canvas)), ElementsAre(false));
    canvas->setEditMode(true);
    widgetsOn(canvas)[0]->setEditable(false);
    EXPECT_THAT(editableOn(roundTrip(canvas)), ElementsAre(true));
}

TEST(CanvasArchive, RestoresFrameImageAndWidgetsWithTheirNumbers) {
    const auto canvas = canvasOf({box({0, 0, 10, 10}), box({20, 0, 10, 10})});
    canvas->setFrame({0, 0, 640, 480});
    canvas->setImage(Image::plain({64, 48}));
    widgetsOn(canvas)[0]->setZOrder(-3);
    widgetsOn(canvas)[1]->setZOrder(9);
    const auto read = roundTrip(canvas);
    EXPECT_EQ(read->frame(), (Rect{0, 0, 640, 480}));
    EXPECT_EQ(test::framesOf(widgetsOn(read)), (std::vector<Rect>{{0, 0, 10, 10}, {20, 0, 10, 10}}));
    EXPECT_THAT(test::zOrdersOn(read), ElementsAre(-3, 9));
    ASSERT_TRUE(read->image());
    EXPECT_EQ(read->image()->size(), (Size{64, 48}));
}

TEST(CanvasReading, MissingKeysReadAsNo) {
    const auto canvas = canvasRead({});
    ASSERT_TRUE(canvas);
    EXPECT_FALSE(canvas->editMode());
    EXPECT_FALSE(canvas->drawGridLines());
    EXPECT_EQ(canvas->step(), 20.0);
}

TEST(CanvasReading, MissingGridKeySwitchesTheGridOffInEditMode) {
    const auto canvas = canvasRead({{"editMode", true}});
    EXPECT_TRUE(canvas->editMode());
    EXPECT_FALSE(canvas->drawGridLines());
}

TEST(CanvasReading, NeverDrawsAPlaceholder) {
    EXPECT_FALSE(canvasRead({})->drawPlaceholderImage());
    EXPECT_FALSE(canvasRead({{"drawPlaceholderImage", true}})->drawPlaceholderImage());
}

}  // namespace
}  // namespace zor
