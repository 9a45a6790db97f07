#include "tests/dashboard/DashboardSupport.h"

namespace zor {
namespace {

using test::box;
using test::dashboardOf;
using test::widgetsOn;
using ::testing::ElementsAre;

class Hosting : public ::testing::Test {
protected:
    std::shared_ptr<ScrollView> scrollView() const {
        return std::dynamic_pointer_cast<ScrollView>(dashboard->view()->subviews().at(0));
    }
    std::shared_ptr<ZORWidgetHostView> container() const {
        return std::dynamic_pointer_cast<ZORWidgetHostView>(scrollView()->documentView());
    }

    std::shared_ptr<ZORWidgetHostView> a = box({10, 20, 100, 50});
    std::shared_ptr<ZORWidgetHostView> b = box({200, 40, 30, 30});
    std::shared_ptr<ZORWidgetHostView> c = box({50, 50, 20, 20});
    std::shared_ptr<ZORDashboardPlugIn> dashboard = dashboardOf({a, b, c});
};

TEST_F(Hosting, BuildsAScrollViewAContainerAndTheCanvas) {
    const auto view = dashboard->view();
    ASSERT_EQ(view->subviews().size(), 1u);
    ASSERT_TRUE(scrollView());
    EXPECT_FALSE(scrollView()->hasBorder());
    EXPECT_TRUE(scrollView()->hasVerticalRuler());
    ASSERT_TRUE(container());
    EXPECT_EQ(container()->kind(), "container");
    EXPECT_EQ(container()->frame(), (Rect{0, 0, 240, 90}));
    EXPECT_THAT(container()->subviews(), ElementsAre(dashboard->editView()));
    EXPECT_EQ(container()->targetView(), dashboard->editView());
    EXPECT_EQ(dashboard->editView()->superview(), container().get());
}

TEST_F(Hosting, TheContainerTakesTheCanvassFrameOfThatMoment) {
    dashboard->editView()->setFrame({0, 0, 640, 480});
    dashboard->view();
    EXPECT_EQ(container()->frame(), (Rect{0, 0, 640, 480}));
}

TEST_F(Hosting, HappensOnce) {
    const auto view = dashboard->view();
    EXPECT_EQ(dashboard->view(), view);
    EXPECT_EQ(view->subviews().size(), 1u);
}

TEST_F(Hosting, TheScrollViewFillsThePlugInsViewAndTheCanvasIsNotStretched) {
    dashboard->view();
    EXPECT_EQ(scrollView()->frame(), (Rect{0, 0, 500, 500}));
    dashboard->view()->setFrame({30, 40, 800, 600});
    EXPECT_EQ(scrollView()->frame(), (Rect{0, 0, 800, 600}));
    EXPECT_EQ(container()->frame(), (Rect{0, 0, 240, 90}));
    EXPECT_EQ(dashboard->editView()->frame(), (Rect{0, 0, 240, 90}));
}

TEST_F(Hosting, WidgetsStandInArrayOrderWithNumbersFromOne) {
    dashboard->view();
    EXPECT_THAT(widgetsOn(dashboard->editView()), ElementsAre(a, b, c));
    EXPECT_THAT(test::zOrdersOn(dashboard->editView()), ElementsAre(1, 2, 3));
}

TEST_F(Hosting, RestoresTheArrayOrderWhateverTheOrderBefore) {
    dashboard->editView()->addSubview(a);
    b->setZOrder(-7);
    ASSERT_THAT(widgetsOn(dashboard->editView()), ElementsAre(b, c, a));
    dashboard->view();
    EXPECT_THAT(widgetsOn(dashboard->editView()), ElementsAre(a, b, c));
    EXPECT_THAT(test::zOrdersOn(dashboard->editView()), ElementsAre(1, 2, 3));
}

TEST_F(Hosting, PutsTheArraysWidgetsAboveOthers) {
    const auto later = box({0, 0, 5, 5});
    dashboard->editView()->addSubview(later);
    dashboard->view();
    EXPECT_THAT(widgetsOn(dashboard->editView()), ElementsAre(later, a, b, c));
    EXPECT_THAT(test::zOrdersOn(dashboard->editView()), ElementsAre(1, 2, 3, 4));
}

TEST_F(Hosting, ADashboardFromAnArchiveKeepsTheStackingOrderStored) {
    dashboard->editView()->addSubview(a);
    b->setZOrder(-7);
    const auto read = test::reopened(dashboard);
    read->view();
    EXPECT_EQ(test::framesOf(widgetsOn(read->editView())),
              (std::vector<Rect>{{200, 40, 30, 30}, {50, 50, 20, 20}, {10, 20, 100, 50}}));
    EXPECT_THAT(test::zOrdersOn(read->editView()), ElementsAre(-7, 2, 3));
}

TEST_F(Hosting, ACanvasSetLaterTakesTheOldOnesPlace) {
    const auto view = dashboard->view();
    const auto old = dashboard->editView();
    const auto other = ZORDashboardEditView::initWithFrame({0, 0, 900, 700});
    dashboard->setEditView(other);
    EXPECT_EQ(ZORDashboardPlugIn::dashboardEditViewFromView(view), other);
    EXPECT_EQ(old->superview(), nullptr);
    EXPECT_EQ(other->superview(), container().get());
}

class HostingLayout : public ::testing::Test {
protected:
    std::vector<LayoutConstraint> active() const {
        std::vector<LayoutConstraint> found;
        for (const auto& constraint : host->constraints()) {
            if (constraint.active) found.push_back(constraint);
        }
        return found;
    }

    std::shared_ptr<View> host = std::make_shared<View>(Rect{5, 6, 300, 200});
    std::shared_ptr<View> target = std::make_shared<View>(Rect{1, 2, 3, 4});
    std::shared_ptr<ZORDashboardPlugIn> dashboard = dashboardOf({});
};

TEST_F(HostingLayout, PinsSixAttributesInOrder) {
    host->addSubview(target);
    dashboard->setupLayoutConstraints(host, target);
    std::vector<LayoutAttribute> attributes;
    for (const auto& constraint : host->constraints()) {
        attributes.push_back(constraint.attribute);
        EXPECT_EQ(constraint.target.lock(), target);
        EXPECT_EQ(constraint.multiplier, 1.0);
        EXPECT_EQ(constraint.constant, 0.0);
        EXPECT_TRUE(constraint.active);
    }
    EXPECT_THAT(attributes, ElementsAre(LayoutAttribute::left, LayoutAttribute::right, LayoutAttribute::top,
                                        LayoutAttribute::bottom, LayoutAttribute::width, LayoutAttribute::height));
    EXPECT_FALSE(target->translatesAutoresizingMaskIntoConstraints());
    EXPECT_TRUE(host->translatesAutoresizingMaskIntoConstraints());
}

TEST_F(HostingLayout, DeactivatesWhatTheHostHeldBefore) {
    host->addSubview(target);
    host->addConstraints({{.target = target, .attribute = LayoutAttribute::width, .multiplier = 0.5}});
    dashboard->setupLayoutConstraints(host, target);
    ASSERT_EQ(active().size(), 6u);
    EXPECT_EQ(active()[0].attribute, LayoutAttribute::left);
    EXPECT_EQ(active()[4].multiplier, 1.0);
}

TEST_F(HostingLayout, TheTargetFillsTheHostFromThenOn) {
    host->addSubview(target);
    dashboard->setupLayoutConstraints(host, target);
    host->setFrame({5, 6, 320, 240});
    EXPECT_EQ(target->frame(), (Rect{0, 0, 320, 240}));
}

}  // namespace
}  // namespace zor
