#include "host/foundation/NotificationCenter.h"
#include "tests/dashboard/DashboardSupport.h"

namespace zor {
namespace {

using test::box;
using test::dashboardOf;

class DashboardLifeCycle : public ::testing::Test {
protected:
    std::size_t observers() const { return centre.observerCount(kAppTimerOneMinuteNotification) - before; }

    FakeToolkit& toolkit = FakeToolkit::install();
    NotificationCenter& centre = NotificationCenter::defaultCenter();
    std::shared_ptr<ZORDashboardPlugIn> dashboard = dashboardOf({box({10, 20, 100, 50})});
    std::size_t before = centre.observerCount(kAppTimerOneMinuteNotification);
};

TEST_F(DashboardLifeCycle, HostingRegistersForTheMinuteExactlyOnce) {
    EXPECT_EQ(observers(), 0u);
    dashboard->view();
    EXPECT_EQ(observers(), 1u);
    dashboard->view();
    dashboard->didLoad();
    dashboard->viewWillAppear();
    dashboard->viewWillDisappear();
    dashboard->viewWillAppear();
    EXPECT_EQ(observers(), 1u);
    dashboard->willUnload();
    EXPECT_EQ(observers(), 1u);
}

TEST_F(DashboardLifeCycle, DestructionRemovesTheRegistration) {
    const auto agent = dashboard->agent();
    dashboard->view();
    dashboard.reset();
    EXPECT_EQ(observers(), 0u);
    centre.post(kAppTimerOneMinuteNotification);
}

TEST_F(DashboardLifeCycle, ADashboardThatWasNeverHostedGoesQuietly) {
    const auto agent = dashboard->agent();
    dashboard.reset();
    EXPECT_EQ(observers(), 0u);
}

TEST_F(DashboardLifeCycle, UnregisteringRemovesThatRegistrationOnly) {
    const auto other = dashboardOf({});
    other->registerForNotification();
    dashboard->registerForNotification();
    const auto known = observers();
    int told = 0;
    centre.addObserver(dashboard.get(), "another", nullptr, [&](const Notification&) { ++told; });
    dashboard->unregisterForNotification();
    EXPECT_EQ(observers(), known - 1);
    centre.post("another");
    EXPECT_EQ(told, 1);
    centre.removeObserver(dashboard.get(), "another", nullptr);
}

TEST_F(DashboardLifeCycle, TheMinuteChangesNothingFromWhicheverSender) {
    dashboard->view();
    dashboard->editDashboard({});
    dashboard->selectAllObjects();
    const auto canvas = dashboard->editView();
    centre.post(kAppTimerOneMinuteNotification, dashboard.get());
    centre.post(kAppTimerOneMinuteNotification);
    EXPECT_EQ(dashboard->editView(), canvas);
    EXPECT_TRUE(canvas->editMode());
    EXPECT_EQ(dashboard->selectedObjects(), test::widgetsOn(canvas));
    EXPECT_EQ(dashboard->undoManager()->depth(), 0);
}

TEST_F(DashboardLifeCycle, DisappearingClosesAnOpenPropertyPanel) {
    dashboard->selectAllObjects();
    dashboard->showPropertyPanel();
    const auto panel = dashboard->propertyPanelController();
    ASSERT_TRUE(panel);
    ASSERT_TRUE(panel->isVisible());
    dashboard->viewWillDisappear();
    EXPECT_FALSE(panel->isVisible());
    EXPECT_EQ(dashboard->propertyPanelController(), panel);
}

TEST_F(DashboardLifeCycle, DisappearingWithoutAPanelDoesNothing) {
    dashboard->viewWillDisappear();
    EXPECT_FALSE(dashboard->propertyPanelController());
}

TEST_F(DashboardLifeCycle, LoadingAndUnloadingLeaveEverythingAsItIs) {
    dashboard->didLoad();
    dashboard->viewWillAppear();
    dashboard->willUnload();
    EXPECT_FALSE(dashboard->isViewLoaded());
    EXPECT_EQ(dashboard->title(), "Unnamed");
    EXPECT_EQ(test::widgetsOn(dashboard->editView()).size(), 1u);
}

TEST_F(DashboardLifeCycle, ADashboardDoesNotOutliveItsOwner) {
    const auto agent = dashboard->agent();
    dashboard->view();
    dashboard->editDashboard({});
    dashboard->selectAllObjects();
    dashboard->showPropertyPanel();
    dashboard->duplicateObject({});
    const std::weak_ptr<ZORDashboardPlugIn> watched = dashboard;
    dashboard.reset();
    EXPECT_TRUE(watched.expired());
}

}  // namespace
}  // namespace zor
