#include "host/foundation/ClassRegistry.h"
#include "host/foundation/KeyedArchiver.h"
#include "host/views/View.h"
#include "host/views/ViewsClasses.h"

namespace zor {
namespace {

std::shared_ptr<View> roundTrip(const std::shared_ptr<View>& view) {
    registerViewsClasses();
    const auto data = KeyedArchiver::archivedDataWithRootObject(view);
    if (!data) {
        ADD_FAILURE() << data.error().message;
        return {};
    }
    const auto root = KeyedUnarchiver::unarchivedRoot(*data);
    if (!root) {
        ADD_FAILURE() << root.error().message;
        return {};
    }
    return root->as<View>();
}

TEST(ViewArchive, KeepsFramesStateAndOrder) {
    const auto parent = std::make_shared<View>(Rect{0.1, -20, 300, 1e21});
    const auto first = std::make_shared<View>(Rect{1, 2, 3, 4});
    const auto second = std::make_shared<View>(Rect{5, 6, 7, 8});
    const auto inner = std::make_shared<View>(Rect{9, 9, 9, 9});
    parent->addSubview(first);
    parent->addSubview(second);
    second->addSubview(inner);
    first->setHidden(true);

    const auto read = roundTrip(parent);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->frame(), (Rect{0.1, -20, 300, 1e21}));
    EXPECT_FALSE(read->isHidden());
    ASSERT_EQ(read->subviews().size(), 2u);
    EXPECT_EQ(read->subviews()[0]->frame(), (Rect{1, 2, 3, 4}));
    EXPECT_TRUE(read->subviews()[0]->isHidden());
    EXPECT_EQ(read->subviews()[0]->superview(), read.get());
    ASSERT_EQ(read->subviews()[1]->subviews().size(), 1u);
    EXPECT_EQ(read->subviews()[1]->subviews()[0]->frame(), (Rect{9, 9, 9, 9}));
}

/// Archives whatever children it is told, also those that are not its own.
class ForgedView : public View {
public:
    std::vector<std::shared_ptr<View>> claimed;
    void encodeWithCoder(Encoder& encoder) override {
        encoder.encodeRect("frame", frame());
        encoder.encodeObjects("subviews", claimed);
    }
};

TEST(ViewArchive, ACircleOfChildrenEnds) {
    const auto outer = std::make_shared<ForgedView>();
    const auto inner = std::make_shared<ForgedView>();
    outer->claimed = {inner, inner, outer};
    inner->claimed = {outer, inner};
    const auto read = roundTrip(outer);
    // The forged circle owns itself.
    outer->claimed.clear();
    inner->claimed.clear();
    ASSERT_TRUE(read);
    std::size_t depth = 0;
    for (const View* view = read.get(); view; view = view->superview()) ASSERT_LT(++depth, 3u);
    std::size_t below = 0;
    for (const auto& child : read->subviews()) below += 1 + child->subviews().size();
    EXPECT_LE(below, 1u);
}

TEST(ViewArchive, AChildOfTwoParentsStaysWithTheFirst) {
    const auto root = std::make_shared<ForgedView>();
    const auto a = std::make_shared<ForgedView>();
    const auto b = std::make_shared<ForgedView>();
    const auto shared = std::make_shared<View>(Rect{1, 1, 1, 1});
    root->claimed = {a, b};
    a->claimed = {shared};
    b->claimed = {shared};
    const auto read = roundTrip(root);
    ASSERT_TRUE(read);
    ASSERT_EQ(read->subviews().size(), 2u);
    EXPECT_EQ(read->subviews()[0]->subviews().size() + read->subviews()[1]->subviews().size(), 1u);
}

TEST(ViewProperties, AreReadAndSetByName) {
    View view({1, 2, 3, 4});
    EXPECT_EQ(view.valueForKey("frame"), Value(Rect{1, 2, 3, 4}));
    EXPECT_TRUE(view.setValueForKey("frame", Rect{5, 6, 7, 8}));
    EXPECT_EQ(view.frame(), (Rect{5, 6, 7, 8}));
    EXPECT_TRUE(view.setValueForKey("hidden", true));
    EXPECT_EQ(view.valueForKey("hidden"), Value(true));
}

TEST(ViewsClassNames, AreRegistered) {
    registerViewsClasses();
    for (const char* name : {"Event", "Responder", "View", "ScrollView", "TextField", "TableView", "Window", "Menu",
                             "ShapeLayer", "ToolbarItem"}) {
        EXPECT_TRUE(ClassRegistry::shared().find(name)) << name;
    }
}

}  // namespace
}  // namespace zor
