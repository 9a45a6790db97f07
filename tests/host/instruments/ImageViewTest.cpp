#include "host/instruments/ZORImageView.h"

#include <limits>

#include "tests/host/instruments/InstrumentSupport.h"

namespace zor {
namespace {

using test::drawn;

class ImageView : public ::testing::Test {
protected:
    void SetUp() override { view.setFrame({10, 10, 200, 100}); }
    Rect imageRect() const {
        const auto images = drawn(const_cast<ZORImageView&>(view)).operationsNamed("drawImage");
        return images.size() == 1 ? images[0].rect : Rect{};
    }
    ZORImageView view;
};

TEST_F(ImageView, DrawsItsImageAtItsOwnSizeCentred) {
    view.setImage(Image::plain({50, 40}));
    EXPECT_EQ(imageRect(), (Rect{75, 30, 50, 40}));
}

TEST_F(ImageView, DrawsALargerImageAsSmallAsItsBounds) {
    view.setImage(Image::plain({400, 100}));
    EXPECT_EQ(imageRect(), (Rect{0, 25, 200, 50}));
    view.setImage(Image::plain({100, 400}));
    EXPECT_EQ(imageRect(), (Rect{87.5, 0, 25, 100}));
}

TEST_F(ImageView, TheImageMayBeSwitchedOff) {
    view.setImage(Image::plain({50, 40}));
    view.setDrawImage(false);
    EXPECT_TRUE(drawn(view).operations().empty());
}

TEST_F(ImageView, WithoutAnImageItDrawsAPlaceholderUnlessToldNotTo) {
    EXPECT_TRUE(view.drawPlaceholderImage());
    const auto operations = drawn(view).operations();
    ASSERT_FALSE(operations.empty());
    EXPECT_EQ(operations[0].path.bounds(), (Rect{0, 0, 200, 100}));
    view.setDrawPlaceholderImage(false);
    EXPECT_TRUE(drawn(view).operations().empty());
}

TEST_F(ImageView, TheBackgroundLiesBelowTheImage) {
    EXPECT_EQ(view.backgroundColor(), Color::clear());
    view.setBackgroundColor(Color::rgb(0x336699));
    view.setImage(Image::plain({50, 40}));
    const auto operations = drawn(view).operations();
    ASSERT_EQ(operations.size(), 2u);
    EXPECT_EQ(operations[0].op, "fillRect");
    EXPECT_EQ(operations[0].rect, (Rect{0, 0, 200, 100}));
    EXPECT_EQ(operations[0].color, Color::rgb(0x336699));
    EXPECT_EQ(operations[1].op, "drawImage");
}

TEST_F(ImageView, AnImageOfAnAbsurdSizeIsNotDrawn) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    for (const Size size :
         {Size{0, 40}, Size{infinity, 40}, Size{40, std::numeric_limits<double>::quiet_NaN()}, Size{40, 100'001}}) {
        view.setImage(Image::plain(size));
        EXPECT_TRUE(drawn(view).operations().empty()) << stringFromSize(size);
    }
}

TEST_F(ImageView, KeepsImageAndSwitchesInArchiveAndCopy) {
    const auto original = std::make_shared<ZORImageView>(Rect{1, 2, 3, 4});
    original->setImage(Image::withData(std::make_shared<const Bytes>(Bytes{1, 2, 3}), {40.5, 30}));
    original->setBackgroundColor({9, 8, 7, 6});
    original->setDrawPlaceholderImage(false);
    original->setDrawImage(false);
    for (const auto& other : {test::roundTrip(original), std::dynamic_pointer_cast<ZORImageView>(original->copy())}) {
        ASSERT_TRUE(other);
        EXPECT_EQ(other->frame(), (Rect{1, 2, 3, 4}));
        ASSERT_TRUE(other->image());
        EXPECT_EQ(other->image()->size(), (Size{40.5, 30}));
        EXPECT_EQ(*other->image()->data(), (Bytes{1, 2, 3}));
        EXPECT_EQ(other->backgroundColor(), (Color{9, 8, 7, 6}));
        EXPECT_FALSE(other->drawPlaceholderImage());
        EXPECT_FALSE(other->drawImage());
        // A canvas gives its image another size.
        other->image()->setSize({1, 1});
        EXPECT_EQ(original->image()->size(), (Size{40.5, 30}));
    }
}

TEST_F(ImageView, TheArchiveOfAViewWithoutImageNamesNone) {
    test::DictionaryCoder coder;
    view.encodeWithCoder(coder);
    EXPECT_EQ(coder.keys(),
              (std::vector<std::string>{"backgroundColor", "drawImage", "drawPlaceholderImage", "frame"}));
}

TEST_F(ImageView, ASmallFileGivesTheDefaults) {
    test::DictionaryCoder coder(Value::Dictionary{{"image", "not one"}, {"backgroundColor", 4}});
    FakeToolkit::install();
    ASSERT_TRUE(view.initWithCoder(coder));
    EXPECT_FALSE(view.image());
    EXPECT_TRUE(view.drawPlaceholderImage());
    EXPECT_TRUE(view.drawImage());
    EXPECT_EQ(view.backgroundColor(), Color::clear());
}

TEST_F(ImageView, OffersItsSettingsAndPosition) {
    EXPECT_EQ(&view.widgetProperties(), &view.settings());
    EXPECT_TRUE(view.showPositionProperties());
    EXPECT_FALSE(view.isCanvas());
}

}  // namespace
}  // namespace zor
