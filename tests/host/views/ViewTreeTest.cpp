#include <gmock/gmock.h>

#include "host/views/Window.h"
#include "tests/host/views/ProbeView.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace zor {
namespace {

std::shared_ptr<View> makeView() {
    return std::make_shared<View>(Rect{0, 0, 10, 10});
}

class ViewTree : public testing::Test {
protected:
    std::shared_ptr<View> parent = makeView();
    std::shared_ptr<View> a = makeView();
    std::shared_ptr<View> b = makeView();
    std::shared_ptr<View> c = makeView();

    void addAll() {
        for (const auto& view : {a, b, c}) parent->addSubview(view);
    }
};

TEST_F(ViewTree, AddsOnTop) {
    addAll();
    EXPECT_THAT(parent->subviews(), ElementsAre(a, b, c));
    EXPECT_EQ(a->superview(), parent.get());
}

TEST_F(ViewTree, AddingAChildAgainMovesItToTheTop) {
    addAll();
    parent->addSubview(a);
    EXPECT_THAT(parent->subviews(), ElementsAre(b, c, a));
}

TEST_F(ViewTree, AnElementOfTheListItselfMayBeAddedAgain) {
    addAll();
    parent->addSubview(parent->subviews()[0]);
    EXPECT_THAT(parent->subviews(), ElementsAre(b, c, a));
}

TEST_F(ViewTree, AChildOfAnotherParentLeavesIt) {
    addAll();
    const auto other = makeView();
    other->addSubview(parent->subviews()[1]);
    EXPECT_THAT(parent->subviews(), ElementsAre(a, c));
    EXPECT_THAT(other->subviews(), ElementsAre(b));
    EXPECT_EQ(b->superview(), other.get());
}

TEST_F(ViewTree, NeverBecomesItsOwnAncestor) {
    parent->addSubview(a);
    a->addSubview(b);
    b->addSubview(parent);
    b->addSubview(a);
    b->addSubview(b);
    b->addSubview(nullptr);
    b->restoreSubviews({parent, a, b, nullptr});
    b->addSubview(c);
    b->replaceSubview(c, parent);
    EXPECT_THAT(b->subviews(), ElementsAre(c));
    EXPECT_THAT(a->subviews(), ElementsAre(b));
    EXPECT_EQ(parent->superview(), nullptr);
}

TEST_F(ViewTree, KnowsItsDescendants) {
    parent->addSubview(a);
    a->addSubview(b);
    EXPECT_TRUE(b->isDescendantOf(*parent));
    EXPECT_TRUE(b->isDescendantOf(*b));
    EXPECT_FALSE(parent->isDescendantOf(*b));
    EXPECT_FALSE(c->isDescendantOf(*parent));
}

TEST_F(ViewTree, RemovalIsHarmlessWithoutAParent) {
    addAll();
    b->removeFromSuperview();
    b->removeFromSuperview();
    EXPECT_THAT(parent->subviews(), ElementsAre(a, c));
    EXPECT_EQ(b->superview(), nullptr);
}

TEST_F(ViewTree, AParentMayHoldTheLastReference) {
    addAll();
    View* const last = a.get();
    a.reset();
    last->removeFromSuperview();
    EXPECT_THAT(parent->subviews(), ElementsAre(b, c));
}

TEST_F(ViewTree, ChildrenOutliveTheirParent) {
    addAll();
    parent.reset();
    EXPECT_EQ(a->superview(), nullptr);
    EXPECT_EQ(a->window(), nullptr);
}

TEST_F(ViewTree, ReplacesAtTheSamePlace) {
    parent->addSubview(a);
    parent->addSubview(b);
    parent->replaceSubview(a, c);
    EXPECT_THAT(parent->subviews(), ElementsAre(c, b));
    EXPECT_EQ(a->superview(), nullptr);
}

TEST_F(ViewTree, ReplacesByAnotherChildAndByADescendant) {
    addAll();
    parent->replaceSubview(c, a);
    EXPECT_THAT(parent->subviews(), ElementsAre(b, a));
    b->addSubview(c);
    parent->replaceSubview(b, c);
    EXPECT_THAT(parent->subviews(), ElementsAre(c, a));
    EXPECT_THAT(b->subviews(), IsEmpty());
}

TEST_F(ViewTree, ReplacesNothingWhereTheOldIsNoChild) {
    parent->addSubview(a);
    parent->replaceSubview(b, c);
    parent->replaceSubview(nullptr, c);
    parent->replaceSubview(a, nullptr);
    parent->replaceSubview(a, a);
    EXPECT_THAT(parent->subviews(), ElementsAre(a));
    EXPECT_EQ(c->superview(), nullptr);
}

TEST_F(ViewTree, SortsStably) {
    addAll();
    a->setFrame({5, 0, 10, 10});
    b->setFrame({1, 0, 10, 10});
    c->setFrame({5, 0, 10, 10});
    parent->sortSubviews([](const View& x, const View& y) {
        return x.frame().x < y.frame().x ? -1 : x.frame().x > y.frame().x ? 1 : 0;
    });
    EXPECT_THAT(parent->subviews(), ElementsAre(b, a, c));
}

TEST_F(ViewTree, RestoresInOrderAndLeavesOutWhatHasAParent) {
    const auto other = makeView();
    other->addSubview(c);
    parent->restoreSubviews({b, a, b, c});
    EXPECT_THAT(parent->subviews(), ElementsAre(b, a));
    EXPECT_EQ(b->superview(), parent.get());
    EXPECT_EQ(c->superview(), other.get());
}

TEST(ViewHooks, AreCalledForTheWholeSubtree) {
    ProbeView::Notes notes;
    Window window;
    const auto root = std::make_shared<View>(Rect{0, 0, 100, 100});
    const auto outer = makeProbe("outer", {0, 0, 50, 50}, notes);
    const auto inner = makeProbe("inner", {0, 0, 20, 20}, notes);
    outer->addSubview(inner);
    EXPECT_THAT(notes, ElementsAre("inner has parent"));
    notes.clear();
    window.setContentView(root);
    root->addSubview(outer);
    EXPECT_THAT(notes,
                ElementsAre("outer has parent", "inner has parent", "outer enters window", "inner enters window"));
    notes.clear();
    root->addSubview(outer);
    EXPECT_THAT(notes, IsEmpty());
    outer->removeFromSuperview();
    EXPECT_THAT(notes,
                ElementsAre("outer has no parent", "inner has parent", "outer leaves window", "inner leaves window"));
}

TEST(ViewHooks, WindowsAnnounceTheirContent) {
    ProbeView::Notes notes;
    const auto content = makeProbe("content", {0, 0, 50, 50}, notes);
    {
        Window window;
        window.setContentView(content);
        EXPECT_EQ(content->window(), &window);
    }
    EXPECT_EQ(content->window(), nullptr);
    EXPECT_THAT(notes, ElementsAre("content enters window", "content leaves window"));
}

TEST(ViewTreeSize, TenThousandChildrenComeMoveAndGo) {
    const auto parent = std::make_shared<View>(Rect{0, 0, 100, 100});
    std::vector<std::shared_ptr<View>> views;
    for (int i = 0; i < 10'000; ++i) {
        views.push_back(std::make_shared<View>(Rect{0, 0, 1, 1}));
        parent->addSubview(views.back());
    }
    EXPECT_EQ(parent->subviews(), views);
    for (const auto& view : views) parent->addSubview(view);
    EXPECT_EQ(parent->subviews(), views);
    for (const auto& view : views) view->removeFromSuperview();
    EXPECT_THAT(parent->subviews(), IsEmpty());
}

}  // namespace
}  // namespace zor
