#include <gmock/gmock.h>

#include "host/views/Menu.h"
#include "host/views/ToolbarItem.h"
#include "tests/host/views/ProbeView.h"

using testing::ElementsAre;

namespace zor {
namespace {

class MenuTest : public testing::Test {
protected:
    ProbeView::Notes notes;
    std::shared_ptr<ProbeView> target = makeProbe("target", {}, notes);
    std::shared_ptr<Menu> menu = std::make_shared<Menu>("Context");

    void SetUp() override {
        menu->addItem("Probe", "probe:", "", target);
        menu->addSeparator();
        menu->addItem("Other", "other:", "k", target);
    }
};

TEST_F(MenuTest, PerformsItemsWithItselfAsSender) {
    EXPECT_TRUE(menu->performItemWithTitle("Probe"));
    EXPECT_TRUE(menu->performItemAtIndex(0));
    EXPECT_THAT(notes, ElementsAre("target probe with sender", "target probe with sender"));
}

TEST_F(MenuTest, KnowsWhatItLacks) {
    EXPECT_FALSE(menu->performItemWithTitle("Nothing"));
    EXPECT_FALSE(menu->performItemWithTitle(""));
    EXPECT_FALSE(menu->performItemAtIndex(1));
    EXPECT_FALSE(menu->performItemAtIndex(3));
}

TEST_F(MenuTest, AnItemWhoseTargetIsGoneDoesNothing) {
    target.reset();
    EXPECT_TRUE(menu->performItemWithTitle("Probe"));
    EXPECT_TRUE(notes.empty());
}

TEST_F(MenuTest, IsReadByName) {
    EXPECT_EQ(menu->valueForKey("title"), Value("Context"));
    EXPECT_EQ(menu->valueForKey("items"),
              Value(Value::Array{Value::Dictionary{{"title", "Probe"}, {"action", "probe:"}},
                                 Value::Dictionary{{"separator", true}},
                                 Value::Dictionary{{"title", "Other"}, {"action", "other:"}}}));
    EXPECT_EQ(menu->items()[2].keyEquivalent, "k");
}

TEST(ToolbarItemTest, IsReadByName) {
    const auto item = std::make_shared<ToolbarItem>("dashboard");
    const auto image = Image::plain({32, 32});
    auto target = std::make_shared<View>();
    item->setLabel("Dashboard");
    item->setImage(image);
    item->setTarget(target);
    item->setAction("toolbarItemAction:");
    EXPECT_EQ(item->valueForKey("itemIdentifier"), Value("dashboard"));
    EXPECT_EQ(item->valueForKey("label"), Value("Dashboard"));
    EXPECT_EQ(item->valueForKey("image"), Value(image));
    EXPECT_EQ(item->valueForKey("target"), Value(target));
    EXPECT_EQ(item->valueForKey("action"), Value("toolbarItemAction:"));
    target.reset();
    EXPECT_TRUE(item->valueForKey("target").isAbsent());
}

}  // namespace
}  // namespace zor
