#include "tests/dashboard/DashboardSupport.h"

namespace zor {
namespace {

using test::canvasOf;

class CanvasImage : public ::testing::Test {
protected:
    /// The size that an image takes on a canvas whose parent is that large.
    Size sizeWithin(Size parentSize, Size imageSize) {
        parent->setFrame({7, 8, parentSize.width, parentSize.height});
        parent->addSubview(canvas);
        const auto image = Image::plain(imageSize);
        canvas->setImage(image);
        EXPECT_EQ(canvas->image(), image);
        return image->size();
    }

    std::shared_ptr<View> parent = std::make_shared<View>();
    std::shared_ptr<ZORDashboardEditView> canvas = canvasOf({}, {50, 60});
};

TEST_F(CanvasImage, AWiderImageTakesTheParentsWidth) {
    EXPECT_EQ(sizeWithin({300, 300}, {400, 100}), (Size{300, 75}));
}

TEST_F(CanvasImage, AHigherImageTakesTheParentsHeight) {
    EXPECT_EQ(sizeWithin({300, 300}, {100, 400}), (Size{75, 300}));
}

TEST_F(CanvasImage, OfTheSameRatioItFillsTheParent) {
    EXPECT_EQ(sizeWithin({300, 300}, {300, 300}), (Size{300, 300}));
    EXPECT_EQ(sizeWithin({400, 200}, {100, 50}), (Size{400, 200}));
}

TEST_F(CanvasImage, ASmallImageGrows) {
    EXPECT_EQ(sizeWithin({600, 400}, {10, 10}), (Size{400, 400}));
}

TEST_F(CanvasImage, WithoutAParentItKeepsItsSize) {
    const auto image = Image::plain({400, 100});
    canvas->setImage(image);
    EXPECT_EQ(image->size(), (Size{400, 100}));
    EXPECT_EQ(canvas->image(), image);
}

TEST_F(CanvasImage, HostedItFitsIntoTheContainer) {
    const auto dashboard = test::dashboardOf({}, {300, 300});
    dashboard->view();
    const auto image = Image::plain({400, 100});
    dashboard->editView()->setImage(image);
    EXPECT_EQ(image->size(), (Size{300, 75}));
}

TEST_F(CanvasImage, NoneTakesTheImageAway) {
    sizeWithin({300, 300}, {400, 100});
    canvas->setImage(nullptr);
    EXPECT_EQ(canvas->image(), nullptr);
}

}  // namespace
}  // namespace zor
