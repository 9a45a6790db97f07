#include "tests/host/foundation/ArchiveSupport.h"
#include "tests/toolbar/ToolbarSupport.h"

namespace zor {
namespace {

using test::box;
using test::canvasOf;
using test::plugInBundle;
using test::widgetsOn;
using ::testing::IsEmpty;

constexpr std::size_t hiDefRow = 2;

class CatalogueFile : public test::ToolbarTest {
protected:
    ~CatalogueFile() override {
        for (const auto& name : written) plugInBundle().remove(name);
    }
    void write(const std::string& name, const Bytes& data) {
        plugInBundle().write(name, data);
        written.push_back(name);
    }
    /// A dashboard file whose canvas holds these widgets.
    void write(const std::string& name, const WidgetList& widgets, const std::string& title) {
        const auto data = KeyedArchiver::archivedDataWithRootObject(
            Value::Dictionary{{"editView", canvasOf(widgets, {1920, 1080})}, {"title", title}, {"agentName", "X"}});
        ASSERT_TRUE(data);
        write(name, *data);
    }

    std::vector<std::string> written;
};

TEST_F(CatalogueFile, IsReadWithCanvasWidgetsAndTitle) {
    write("Hi-Def.zordashboard", {box({10, 20, 30, 40})}, "Hi-Def Dashboard");
    const auto dashboard = toolbar->dashboardForRow(hiDefRow);
    ASSERT_TRUE(dashboard);
    EXPECT_EQ(dashboard->title(), "Hi-Def Dashboard");
    ASSERT_TRUE(dashboard->editView());
    EXPECT_EQ(dashboard->editView()->frame(), (Rect{0, 0, 1920, 1080}));
    EXPECT_EQ(test::framesOf(widgetsOn(dashboard->editView())), (std::vector<Rect>{{10, 20, 30, 40}}));
    EXPECT_EQ(dashboard->agent(), agent);
    EXPECT_EQ(dashboard->siteWindowController(), controller);
    EXPECT_THAT(controller->plugIns(), IsEmpty());
}

TEST_F(CatalogueFile, ItsCanvasIsTheOneShown) {
    write("Hi-Def.zordashboard", {box({10, 20, 30, 40})}, "Hi-Def Dashboard");
    const auto dashboard = toolbar->dashboardForRow(hiDefRow);
    EXPECT_EQ(ZORDashboardPlugIn::dashboardEditViewFromView(dashboard->view()), dashboard->editView());
    EXPECT_EQ(widgetsOn(dashboard->editView()).size(), 1u);
    ASSERT_TRUE(dashboard->editView()->superview());
    EXPECT_EQ(dashboard->editView()->superview()->frame(), (Rect{0, 0, 1920, 1080}));
}

TEST_F(CatalogueFile, TheAgentsOwnFileComesFirst) {
    write("Hi-Def.zordashboard", {}, "general");
    write("Hi-Def-A.zordashboard", {}, "for A");
    EXPECT_EQ(toolbar->dashboardForRow(hiDefRow)->title(), "for A");
}

TEST_F(CatalogueFile, AnotherAgentsFileIsPassedOver) {
    write("Hi-Def.zordashboard", {}, "general");
    write("Hi-Def-B.zordashboard", {}, "for B");
    EXPECT_EQ(toolbar->dashboardForRow(hiDefRow)->title(), "general");
}

TEST_F(CatalogueFile, TheAgentsFileAloneSuffices) {
    write("Hi-Def-A.zordashboard", {}, "for A");
    EXPECT_EQ(toolbar->dashboardForRow(hiDefRow)->title(), "for A");
}

TEST_F(CatalogueFile, WithoutOneThereIsNothing) {
    EXPECT_FALSE(toolbar->dashboardForRow(hiDefRow));
}

TEST_F(CatalogueFile, OfAnotherTypeItIsNotFound) {
    write("Hi-Def.qm4dashboard", {}, "old");
    EXPECT_FALSE(toolbar->dashboardForRow(hiDefRow));
}

TEST_F(CatalogueFile, WidgetsAreLinkedToTheAgentsPropertiesByName) {
    const auto theirs = std::make_shared<Property>("outdoorTemperature", "Outdoor", Quantity::temperature);
    const auto known = ZORWidgetHostView::textFieldWithRect({0, 0, 100, 20});
    targetOf(known)->setProperty(theirs);
    const auto unknown = ZORWidgetHostView::textFieldWithRect({0, 30, 100, 20});
    targetOf(unknown)->setProperty(std::make_shared<Property>("snowDepth", "Snow", Quantity::none));
    write("Hi-Def.zordashboard", {known, unknown}, "Hi-Def Dashboard");
    give({"outdoorTemperature"});
    const auto widgets = widgetsOn(toolbar->dashboardForRow(hiDefRow)->editView());
    EXPECT_EQ(targetOf(widgets[0])->property(), property("outdoorTemperature"));
    EXPECT_EQ(targetOf(widgets[1])->propertyName(), "snowDepth");
    EXPECT_EQ(targetOf(widgets[1])->text(), "--");
}

TEST_F(CatalogueFile, WithoutATitleTheDashboardHasNone) {
    const auto data =
        KeyedArchiver::archivedDataWithRootObject(Value::Dictionary{{"editView", canvasOf({}, {100, 100})}});
    write("Hi-Def.zordashboard", *data);
    const auto dashboard = toolbar->dashboardForRow(hiDefRow);
    ASSERT_TRUE(dashboard);
    EXPECT_EQ(dashboard->title(), std::nullopt);
}

TEST_F(CatalogueFile, WithoutACanvasTheDashboardHasNone) {
    const auto data = KeyedArchiver::archivedDataWithRootObject(Value::Dictionary{{"title", "Bare"}});
    write("Hi-Def.zordashboard", *data);
    const auto dashboard = toolbar->dashboardForRow(hiDefRow);
    ASSERT_TRUE(dashboard);
    EXPECT_EQ(dashboard->title(), "Bare");
    EXPECT_FALSE(dashboard->editView());
    dashboard->view();
}

TEST_F(CatalogueFile, OldClassNamesAreNotUnderstood) {
    using namespace archivetest;
    const auto keys = array({uid(2), uid(3)}), values = array({uid(4), uid(5)});
    write("Hi-Def.zordashboard",
          binaryOf(archiveText({object(6, {entry("NS.keys", keys), entry("NS.objects", values)}), string("editView"),
                                string("title"), object(7), string("Old"), classRecord("NSDictionary"),
                                classRecord("DashboardEditView")})));
    const auto dashboard = toolbar->dashboardForRow(hiDefRow);
    EXPECT_FALSE(dashboard && dashboard->editView());
}

TEST_F(CatalogueFile, ByItsPresentNameTheSameCanvasIsRead) {
    using namespace archivetest;
    const auto keys = array({uid(2), uid(3)}), values = array({uid(4), uid(5)});
    write("Hi-Def.zordashboard",
          binaryOf(archiveText({object(6, {entry("NS.keys", keys), entry("NS.objects", values)}), string("editView"),
                                string("title"), object(7), string("Old"), classRecord("NSDictionary"),
                                classRecord("ZORDashboardEditView")})));
    const auto dashboard = toolbar->dashboardForRow(hiDefRow);
    ASSERT_TRUE(dashboard);
    EXPECT_TRUE(dashboard->editView());
    EXPECT_EQ(dashboard->title(), "Old");
}

TEST_F(CatalogueFile, WhatIsNoArchiveGivesNoCanvas) {
    write("Hi-Def.zordashboard", Bytes{'n', 'o', 'n', 'e'});
    const auto dashboard = toolbar->dashboardForRow(hiDefRow);
    EXPECT_FALSE(dashboard && dashboard->editView());
}

}  // namespace
}  // namespace zor
