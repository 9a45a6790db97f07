#include "host/station/ZORHelpManager.h"
#include "tests/toolbar/ToolbarSupport.h"

namespace zor {
namespace {

using test::fontsActivatedAtStart;
using test::plugInBundle;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ToolbarPlugIn : public test::ToolbarTest {
protected:
    std::shared_ptr<ZORDashboardToolbarPlugIn> reopened() const {
        const auto data = KeyedArchiver::archivedDataWithRootObject(toolbar);
        if (!data) return {};
        const auto root = KeyedUnarchiver::unarchivedRoot(
            *data, {.context = {{"agent", agent}, {"siteWindowController", controller}}});
        return root ? root->as<ZORDashboardToolbarPlugIn>() : nullptr;
    }
};

class FurtherToolbarPlugIn : public ZORDashboardToolbarPlugIn {
public:
    static const ClassRecord& staticClass() {
        static const ClassRecord& record =
            ClassBuilder<FurtherToolbarPlugIn>("FurtherToolbarPlugIn", &ZORDashboardToolbarPlugIn::staticClass())
                .creatable()
                .registered();
        return record;
    }
    const ClassRecord& classRecord() const override { return staticClass(); }
};

TEST_F(ToolbarPlugIn, FirstUseOfTheClassActivatesTheTwoFontsInOrder) {
    EXPECT_THAT(fontsActivatedAtStart(),
                ElementsAre(plugInBundle().resource("LCDPHONE.ttf"), plugInBundle().resource("Crysta.ttf")));
}

TEST_F(ToolbarPlugIn, InitialisingAgainOrASubclassActivatesNothingMore) {
    ZORDashboardToolbarPlugIn::initialize();
    ZORDashboardToolbarPlugIn::initialize();
    FurtherToolbarPlugIn::initialize();
    FurtherToolbarPlugIn::staticClass();
    std::make_shared<FurtherToolbarPlugIn>();
    ZORDashboardToolbarPlugIn::initWithAgent(agent, controller);
    EXPECT_THAT(toolkit.activatedFonts, IsEmpty());
}

TEST_F(ToolbarPlugIn, ANewOneRemembersTheTitleDashboard) {
    EXPECT_EQ(toolbar->lastUsedTitle(), "Dashboard");
    EXPECT_EQ(toolbar->agent(), agent);
    EXPECT_EQ(toolbar->siteWindowController(), controller);
}

TEST_F(ToolbarPlugIn, IsMadeByTheNameOfItsClass) {
    const auto* record = ClassRegistry::shared().find("ZORDashboardToolbarPlugIn");
    ASSERT_TRUE(record);
    const std::vector<Value> given{agent, controller};
    const auto made = std::dynamic_pointer_cast<ZORDashboardToolbarPlugIn>(record->initializer()(given));
    ASSERT_TRUE(made);
    EXPECT_EQ(made->lastUsedTitle(), "Dashboard");
    EXPECT_EQ(made->agent(), agent);
}

TEST_F(ToolbarPlugIn, SavedAndReopenedItKeepsTheTitle) {
    toolbar->setLastUsedTitle("Kitchen");
    const auto read = reopened();
    ASSERT_TRUE(read);
    EXPECT_EQ(read->lastUsedTitle(), "Kitchen");
    EXPECT_EQ(read->agent(), agent);
    EXPECT_EQ(read->uniqueIdentifier(), toolbar->uniqueIdentifier());
}

TEST_F(ToolbarPlugIn, WritesTheTitleAfterTheBaseClassAndNothingElse) {
    toolbar->setDashboardTitle("Other");
    test::WritingOrder coder;
    toolbar->encodeWithCoder(coder);
    EXPECT_THAT(coder.keys(), ElementsAre("agent", "uniqueIdentifier", "lastUsedTitle"));
    EXPECT_EQ(coder.valueOf("lastUsedTitle"), Value("Dashboard"));
}

TEST_F(ToolbarPlugIn, AnOldArchiveWithoutTheKeyLeavesTheTitleAbsent) {
    test::ReadingFor decoder(agent, {});
    const auto read = std::make_shared<ZORDashboardToolbarPlugIn>();
    ASSERT_TRUE(read->initWithCoder(decoder));
    EXPECT_EQ(read->lastUsedTitle(), std::nullopt);
}

TEST_F(ToolbarPlugIn, ItsToolbarItemOpensTheSelection) {
    const auto item = toolbar->toolbarItem();
    ASSERT_TRUE(item);
    EXPECT_EQ(item->itemIdentifier(), "test.dashboard");
    EXPECT_EQ(item->label(), "Dashboard");
    ASSERT_TRUE(item->image());
    EXPECT_EQ(item->image()->size(), (Size{48, 32}));
    EXPECT_EQ(item->target(), toolbar);
    EXPECT_EQ(item->action(), "toolbarItemAction:");
}

TEST_F(ToolbarPlugIn, TwoCallsGiveTwoEqualToolbarItems) {
    const auto one = toolbar->toolbarItem(), two = toolbar->toolbarItem();
    EXPECT_NE(one, two);
    EXPECT_EQ(one->itemIdentifier(), two->itemIdentifier());
    EXPECT_EQ(one->label(), two->label());
    EXPECT_EQ(*one->image()->data(), *two->image()->data());
    EXPECT_EQ(one->target(), two->target());
    EXPECT_EQ(one->action(), two->action());
}

TEST_F(ToolbarPlugIn, AMissingIconGivesAnItemWithoutImage) {
    plugInBundle().remove("icon.png");
    EXPECT_FALSE(toolbar->icon());
    const auto item = toolbar->toolbarItem();
    ASSERT_TRUE(item);
    EXPECT_FALSE(item->image());
    plugInBundle().write("icon.png", FakeToolkit::imageData({48, 32}));
}

TEST_F(ToolbarPlugIn, DescribesItself) {
    EXPECT_EQ(toolbar->name(), "Dashboard");
    EXPECT_EQ(toolbar->textDescription(),
              "Dashboard provides custom screens that contain graphical elements such as labels, gauges, and images.");
    EXPECT_EQ(toolbar->htmlDescription(),
              "<table><tr><th colspan=2 align=center>Dashboard Plug-In - Version 4.2 (77)</th></tr></table>");
    EXPECT_EQ(toolbar->xmlDescription(), std::nullopt);
    EXPECT_EQ(toolbar->jsonDescription(), std::nullopt);
    EXPECT_EQ(toolbar->group(), Value(0));
    ASSERT_TRUE(toolbar->icon());
    EXPECT_EQ(*toolbar->icon()->data(), FakeToolkit::imageData({48, 32}));
}

TEST_F(ToolbarPlugIn, HelpOpensAtTheDashboards) {
    toolbar->showHelp();
    EXPECT_THAT(toolkit.helpAnchors, ElementsAre("dashboards"));
}

TEST_F(ToolbarPlugIn, HoldsItsOutletsWeakly) {
    auto window = std::make_shared<Window>();
    auto page1 = std::make_shared<View>(), page2 = std::make_shared<View>(), detail = std::make_shared<View>();
    auto table = std::make_shared<TableView>();
    auto text = std::make_shared<TextField>();
    toolbar->setConfigurationWindow(window);
    toolbar->setPage1(page1);
    toolbar->setPage2(page2);
    toolbar->setTableView(table);
    toolbar->setDetailView(detail);
    toolbar->setDescriptionView(text);
    EXPECT_EQ(toolbar->configurationWindow(), window);
    EXPECT_EQ(toolbar->page1(), page1);
    EXPECT_EQ(toolbar->page2(), page2);
    EXPECT_EQ(toolbar->tableView(), table);
    EXPECT_EQ(toolbar->detailView(), detail);
    EXPECT_EQ(toolbar->descriptionView(), text);
    window.reset(), page1.reset(), page2.reset(), table.reset(), detail.reset(), text.reset();
    EXPECT_FALSE(toolbar->configurationWindow());
    EXPECT_FALSE(toolbar->page1());
    EXPECT_FALSE(toolbar->page2());
    EXPECT_FALSE(toolbar->tableView());
    EXPECT_FALSE(toolbar->detailView());
    EXPECT_FALSE(toolbar->descriptionView());
}

TEST_F(ToolbarPlugIn, ItsOutletsAndTitlesAreFieldsByName) {
    const auto text = std::make_shared<TextField>();
    EXPECT_TRUE(toolbar->setValueForKey("descriptionView", text));
    EXPECT_EQ(toolbar->valueForKey("descriptionView"), Value(text));
    EXPECT_TRUE(toolbar->setValueForKey("dashboardTitle", "Mine"));
    EXPECT_EQ(toolbar->dashboardTitle(), "Mine");
    EXPECT_TRUE(toolbar->setValueForKey("lastUsedTitle", "Yours"));
    EXPECT_EQ(toolbar->valueForKey("lastUsedTitle"), Value("Yours"));
    for (const auto* outlet : {"configurationWindow", "page1", "page2", "tableView", "detailView"}) {
        EXPECT_TRUE(toolbar->setValueForKey(outlet, Value())) << outlet;
        EXPECT_TRUE(toolbar->valueForKey(outlet).isAbsent()) << outlet;
    }
}

TEST_F(ToolbarPlugIn, LoadingAndUnloadingChangeNothing) {
    toolbar->didLoad();
    toolbar->willUnload();
    EXPECT_EQ(toolbar->lastUsedTitle(), "Dashboard");
    EXPECT_THAT(controller->plugIns(), IsEmpty());
}

}  // namespace
}  // namespace zor
