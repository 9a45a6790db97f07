#include "host/station/ZORHelpManager.h"
#include "tests/dashboard/DashboardSupport.h"
#include "tests/dashboard/PlugInBundle.h"

namespace zor {
namespace {

class DashboardDescriptions : public ::testing::Test {
protected:
    FakeToolkit& toolkit = FakeToolkit::install();
    std::shared_ptr<ZORDashboardPlugIn> dashboard = test::dashboardOf({});
};

TEST_F(DashboardDescriptions, AreConstant) {
    EXPECT_EQ(dashboard->name(), "Dashboard");
    EXPECT_EQ(dashboard->textDescription(), "Dashboard is a plug-in that provides customized instrument panels.");
    EXPECT_EQ(dashboard->group(), Value("Dashboard"));
    EXPECT_TRUE(dashboard->isRenamable());
    EXPECT_TRUE(dashboard->isDeletable());
}

TEST_F(DashboardDescriptions, NeitherXmlNorJsonIsOffered) {
    EXPECT_EQ(dashboard->xmlDescription(), std::nullopt);
    EXPECT_EQ(dashboard->jsonDescription(), std::nullopt);
}

TEST_F(DashboardDescriptions, HtmlNamesTheBundlesVersionAndTheText) {
    EXPECT_EQ(dashboard->htmlDescription(),
              "<table><tr><th colspan=2 align=center>Dashboard Plug-In - Version 4.2 (77)</th></tr>"
              "<tr><td colspan=2><i>Dashboard is a plug-in that provides customized instrument panels.</i></td></tr>"
              "</table>");
}

TEST_F(DashboardDescriptions, IconIsTheImageOfThatNameInTheBundle) {
    const auto icon = dashboard->icon();
    ASSERT_TRUE(icon);
    EXPECT_EQ(icon->size(), (Size{48, 32}));
    EXPECT_EQ(*icon->data(), FakeToolkit::imageData({48, 32}));
}

TEST_F(DashboardDescriptions, AMissingIconGivesNone) {
    test::plugInBundle().remove("icon.png");
    EXPECT_FALSE(dashboard->icon());
    test::plugInBundle().write("icon.png", FakeToolkit::imageData({48, 32}));
}

TEST_F(DashboardDescriptions, HelpOpensAtTheDashboard) {
    dashboard->showHelp();
    EXPECT_EQ(toolkit.helpAnchors, (std::vector<std::string>{"dashboard"}));
    EXPECT_EQ(ZORHelpManager::sharedHelpManager().lastAnchor(), "dashboard");
}

}  // namespace
}  // namespace zor
