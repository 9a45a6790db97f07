#include "host/views/ScrollView.h"

namespace zor {
namespace {

class ViewLayout : public testing::Test {
protected:
    std::shared_ptr<View> host = std::make_shared<View>(Rect{30, 40, 200, 100});
    std::shared_ptr<View> target = std::make_shared<View>(Rect{1, 2, 50, 60});

    void SetUp() override { host->addSubview(target); }

    LayoutConstraint constraint(LayoutAttribute attribute, double multiplier = 1, double constant = 0) const {
        return {target, attribute, multiplier, constant};
    }
    std::vector<LayoutConstraint> allSix() const {
        using enum LayoutAttribute;
        return {constraint(left),   constraint(right), constraint(top),
                constraint(bottom), constraint(width), constraint(height)};
    }
};

TEST_F(ViewLayout, SixEqualitiesFillTheHost) {
    host->addConstraints(allSix());
    EXPECT_EQ(target->frame(), (Rect{0, 0, 200, 100}));
    host->setFrame({0, 0, 321.5, 77});
    EXPECT_EQ(target->frame(), (Rect{0, 0, 321.5, 77}));
    EXPECT_EQ(host->constraints().size(), 6u);
}

TEST_F(ViewLayout, AMoveOfTheHostLeavesTheChildren) {
    host->addConstraints(allSix());
    host->setFrame({99, 99, 200, 100});
    EXPECT_EQ(target->frame(), (Rect{0, 0, 200, 100}));
}

TEST_F(ViewLayout, WhatNothingIsSaidOfStays) {
    host->addConstraints({constraint(LayoutAttribute::right, 1, -10)});
    EXPECT_EQ(target->frame(), (Rect{140, 2, 50, 60}));
    host->addConstraints({constraint(LayoutAttribute::bottom, 0.5)});
    EXPECT_EQ(target->frame(), (Rect{140, -10, 50, 60}));
}

TEST_F(ViewLayout, TwoEndsGiveTheLength) {
    host->addConstraints({constraint(LayoutAttribute::left, 1, 8), constraint(LayoutAttribute::right, 1, -8),
                          constraint(LayoutAttribute::height, 0.25)});
    EXPECT_EQ(target->frame(), (Rect{8, 2, 184, 25}));
}

TEST_F(ViewLayout, DeactivatedConstraintsDoNothing) {
    host->addConstraints(allSix());
    host->deactivateConstraints();
    host->setFrame({0, 0, 500, 500});
    EXPECT_EQ(target->frame(), (Rect{0, 0, 200, 100}));
    for (const auto& held : host->constraints()) EXPECT_FALSE(held.active);
}

TEST_F(ViewLayout, AViewThatHasLeftIsLeftAlone) {
    host->addConstraints(allSix());
    target->removeFromSuperview();
    host->setFrame({0, 0, 500, 500});
    EXPECT_EQ(target->frame(), (Rect{0, 0, 200, 100}));
    target.reset();
    host->setFrame({0, 0, 600, 600});
}

TEST_F(ViewLayout, AFilledScrollViewFollowsItsHost) {
    const auto scroll = std::make_shared<ScrollView>(Rect{0, 0, 500, 500});
    scroll->setHasBorder(false);
    const auto document = std::make_shared<View>(Rect{0, 0, 400, 300});
    scroll->setDocumentView(document);
    target->addSubview(scroll);
    target->addConstraints({{scroll, LayoutAttribute::width}, {scroll, LayoutAttribute::height}});
    EXPECT_EQ(scroll->viewport(), (Rect{0, 0, 50, 60}));
    EXPECT_EQ(document->frame(), (Rect{0, 0, 400, 300}));
}

TEST(ViewWithoutConstraints, AnswersNone) {
    View view;
    view.deactivateConstraints();
    EXPECT_TRUE(view.constraints().empty());
    EXPECT_TRUE(view.translatesAutoresizingMaskIntoConstraints());
}

}  // namespace
}  // namespace zor
