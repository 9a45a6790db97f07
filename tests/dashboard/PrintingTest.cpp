#include "tests/dashboard/HostedDashboard.h"

namespace zor {
namespace {

class Printing : public test::HostedDashboard {};

TEST_F(Printing, PrintsTheLiveCanvasInItsWindowOnOneLandscapePage) {
    host({test::box({10, 20, 100, 50})}, {600, 400});
    dashboard->printDocument();
    ASSERT_EQ(toolkit.printings.size(), 1u);
    const auto& [operation, onWindow] = toolkit.printings[0];
    EXPECT_EQ(operation.view, canvas);
    EXPECT_EQ(operation.settings.orientation, PaperOrientation::landscape);
    EXPECT_EQ(operation.settings.horizontal, Pagination::fit);
    EXPECT_EQ(operation.settings.vertical, Pagination::fit);
    EXPECT_EQ(operation.delegate.lock(), dashboard);
    EXPECT_EQ(onWindow, window.get());
}

TEST_F(Printing, WithoutACanvasNothingFails) {
    dashboard = test::dashboardRead({});
    dashboard->printDocument();
}

}  // namespace
}  // namespace zor
