#include "host/foundation/Image.h"

#include "host/foundation/FoundationClasses.h"
#include "host/foundation/KeyedArchiver.h"

namespace zor {
namespace {

std::shared_ptr<Image> throughArchive(const std::shared_ptr<Image>& image) {
    registerFoundationClasses();
    const auto archive = KeyedArchiver::archivedDataWithRootObject(image);
    if (!archive) return {};
    return KeyedUnarchiver::unarchivedRoot(*archive).valueOr({}).as<Image>();
}

TEST(ImageTest, PlainImageHasASizeAndNoData) {
    const auto image = Image::plain({40, 30});
    EXPECT_EQ(image->size(), (Size{40, 30}));
    EXPECT_EQ(image->data(), nullptr);
    EXPECT_TRUE(image->setValueForKey("size", Size{8, 9}));
    EXPECT_EQ(image->size(), (Size{8, 9}));
}

TEST(ImageTest, CopySharesTheDataAndHasItsOwnSize) {
    const auto image = Image::withData(std::make_shared<const Bytes>(Bytes{1, 2, 3}), {40, 30});
    const auto copy = std::dynamic_pointer_cast<Image>(image->copy());
    ASSERT_NE(copy, nullptr);
    EXPECT_NE(copy, image);
    EXPECT_EQ(copy->data(), image->data());
    copy->setSize({1, 1});
    EXPECT_EQ(image->size(), (Size{40, 30}));
}

TEST(ImageTest, ArchiveKeepsDataAndSize) {
    const auto back = throughArchive(Image::withData(std::make_shared<const Bytes>(Bytes{1, 2, 3}), {40.5, 30}));
    ASSERT_NE(back, nullptr);
    ASSERT_NE(back->data(), nullptr);
    EXPECT_EQ(*back->data(), (Bytes{1, 2, 3}));
    EXPECT_EQ(back->size(), (Size{40.5, 30}));
}

TEST(ImageTest, ArchiveKeepsAPlainImagePlain) {
    const auto back = throughArchive(Image::plain({7, 8}));
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(back->data(), nullptr);
    EXPECT_EQ(back->size(), (Size{7, 8}));
}

}  // namespace
}  // namespace zor
