#include "host/foundation/Log.h"
#include "tests/host/foundation/ArchiveSupport.h"
#include "tests/toolbar/ToolbarSupport.h"

namespace zor {
namespace {

using test::box;
using test::canvasOf;
using test::label;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

const std::string warningOfB =
    "This Dashboard was exported from a Site Document configured for the B.\n\nSince property names can vary between "
    "agents, some widgets may need to be relinked to a property in this agent.";

class Import : public test::ToolbarTest {
protected:
    void SetUp() override {
        agent->setSiteWindowController(controller);
        give({"outdoorTemperature"});
        setLogSink([this](std::string_view line) { log.emplace_back(line); });
    }
    void TearDown() override { setLogSink({}); }

    static std::shared_ptr<ZORWidgetHostView> linkedTo(const std::string& name) {
        auto widget = ZORWidgetHostView::textFieldWithRect({0, 0, 80, 20});
        targetOf<LinkedInstrumentView>(widget)->linkProperty(name, {});
        return widget;
    }
    void write(Value::Dictionary root) {
        const auto data = KeyedArchiver::archivedDataWithRootObject(std::move(root));
        ASSERT_TRUE(data);
        file = folder.write("Panel.zordashboard", std::string(data->begin(), data->end()));
    }
    void write(const std::string& agentName, const WidgetList& widgets = {box({1, 2, 3, 4})}) {
        write({{"editView", canvasOf(widgets)}, {"title", "Mine"}, {"agentName", agentName}});
    }
    void import() {
        toolkit.openAnswers.push_back({PanelResponse::ok, file});
        toolbar->performWithSender("importDashboard:", nullptr);
    }
    std::shared_ptr<ZORDashboardPlugIn> imported() const {
        return std::dynamic_pointer_cast<ZORDashboardPlugIn>(controller->selectedPlugIn());
    }
    static std::string textOf(const std::shared_ptr<ZORWidgetHostView>& widget) {
        return targetOf<>(widget)->text().value_or("(none)");
    }

    test::TemporaryFolder folder;
    std::string file = folder / "missing.zordashboard";
    std::vector<std::string> log;
};

TEST_F(Import, AsksForTheThreeTypesInOrderInASheetOfTheSiteWindow) {
    toolbar->importDashboard({});
    ASSERT_EQ(toolkit.sheets.size(), 1u);
    EXPECT_EQ(toolkit.sheets[0]->kind, "open");
    EXPECT_EQ(toolkit.sheets[0]->window, controller->window().get());
    EXPECT_THAT(toolkit.sheets[0]->allowedTypes, ElementsAre("zordashboard", "qm4dashboard", "qmxdashboard"));
    EXPECT_TRUE(toolkit.sheets[0]->orderedOut);
    EXPECT_THAT(controller->plugIns(), IsEmpty());
}

TEST_F(Import, OfTheSameAgentIsAddedWithoutAnAlertAndThePanelIsOrderedOut) {
    write("A");
    import();
    ASSERT_EQ(toolkit.sheets.size(), 1u);
    EXPECT_TRUE(toolkit.sheets[0]->orderedOut);
    ASSERT_TRUE(imported());
    EXPECT_EQ(imported()->title(), "Mine");
    EXPECT_EQ(imported()->agent(), agent);
    EXPECT_EQ(imported()->siteWindowController(), controller);
    EXPECT_EQ(ZORDashboardPlugIn::dashboardEditViewFromView(imported()->view()), imported()->editView());
}

TEST_F(Import, OfAnotherAgentWaitsForTheWarningAndLeavesThePanelAlone) {
    toolkit.holdAnswers = true;
    write("B");
    import();
    toolkit.deliverAnswers();
    ASSERT_EQ(toolkit.sheets.size(), 2u);
    EXPECT_EQ(toolkit.sheets[1]->kind, "alert");
    EXPECT_EQ(toolkit.sheets[1]->window, controller->window().get());
    EXPECT_EQ(toolkit.sheets[1]->message, "Warning");
    EXPECT_EQ(toolkit.sheets[1]->informative, warningOfB);
    EXPECT_THAT(toolkit.sheets[1]->buttons, ElementsAre("OK"));
    EXPECT_THAT(controller->plugIns(), IsEmpty());
    toolkit.alertAnswers.push_back(1000);
    toolkit.deliverAnswers();
    ASSERT_TRUE(imported());
    EXPECT_EQ(imported()->title(), "Mine");
    EXPECT_FALSE(toolkit.sheets[0]->orderedOut);
}

TEST_F(Import, AWarningThatEndsOtherwiseAddsNothing) {
    toolkit.alertAnswers.push_back(1001);
    write("B");
    import();
    EXPECT_EQ(toolkit.sheets.size(), 2u);
    EXPECT_THAT(controller->plugIns(), IsEmpty());
}

TEST_F(Import, TheWarningBelongsToTheWindowOfTheAgentsController) {
    const auto other = std::make_shared<SiteWindowController>();
    agent->setSiteWindowController(other);
    write("B");
    import();
    ASSERT_EQ(toolkit.sheets.size(), 2u);
    EXPECT_EQ(toolkit.sheets[0]->window, controller->window().get());
    EXPECT_EQ(toolkit.sheets[1]->window, other->window().get());
}

TEST_F(Import, AnAgentWithoutANameInTheFileIsNull) {
    write({{"editView", canvasOf({})}, {"title", "Mine"}});
    import();
    ASSERT_EQ(toolkit.sheets.size(), 2u);
    EXPECT_NE(toolkit.sheets[1]->informative.find("configured for the (null).\n\n"), std::string::npos);
}

TEST_F(Import, WhatIsNoArchiveBecomesADashboardWithoutACanvasAfterTheWarning) {
    file = folder.write("junk.zordashboard", "junk");
    import();
    ASSERT_EQ(toolkit.sheets.size(), 2u);
    ASSERT_TRUE(imported());
    EXPECT_FALSE(imported()->editView());
    EXPECT_EQ(imported()->title(), std::nullopt);
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(Import, EveryStepHoldsThePlugInWeakly) {
    toolkit.holdAnswers = true;
    write("B");
    import();
    toolkit.deliverAnswers();
    const std::weak_ptr<Object> weak = toolbar;
    toolbar.reset();
    EXPECT_TRUE(weak.expired());
    toolkit.deliverAnswers();
    EXPECT_THAT(controller->plugIns(), IsEmpty());
}

TEST_F(Import, TheDashboardIsInTheListWhenItsWidgetsAreRelinked) {
    setLogSink([this](std::string_view) { log.push_back(std::to_string(controller->plugIns().size())); });
    write("A", {linkedTo("outdoorTemperature"), box({0, 0, 9, 9}), linkedTo("windSpeed")});
    import();
    EXPECT_THAT(log, ElementsAre("1", "1"));
}

TEST_F(Import, RelinksByNameAndSaysOkForEachInstrumentThatHasAProperty) {
    property("outdoorTemperature")->setValue(12, 1);
    write("A", {linkedTo("outdoorTemperature"), box({0, 0, 9, 9}), ZORWidgetHostView::webViewWithRect({0, 0, 9, 9}),
                linkedTo("windSpeed"), label({0, 0, 50, 20}, "fixed")});
    import();
    EXPECT_THAT(log, ElementsAre("OK", "OK", "OK"));
    const auto widgets = test::widgetsOn(imported()->editView());
    EXPECT_EQ(targetOf<>(widgets[0])->property(), property("outdoorTemperature"));
    EXPECT_NE(textOf(widgets[0]).find("12"), std::string::npos);
    EXPECT_EQ(targetOf<>(widgets[3])->property(), nullptr);
    EXPECT_EQ(targetOf<>(widgets[3])->propertyName(), std::nullopt);
    EXPECT_EQ(targetOf<>(widgets[3])->lastPropertyName(), "windSpeed");
    EXPECT_EQ(textOf(widgets[4]), "fixed");
}

TEST_F(Import, NamesOfEarlierProgramsLeadToThePresentClasses) {
    const auto classFor = [this](const std::string& name) {
        const auto* record = toolbar->unarchiverCannotDecodeObjectOfClassName(name, {});
        return record ? record->name() : "none";
    };
    EXPECT_EQ(classFor("ZORDirectionGaugeView"), "ZORRoundGaugeView");
    EXPECT_EQ(classFor("DashboardEditView"), "ZORDashboardEditView");
    EXPECT_EQ(classFor("QM4TextFieldView"), "ZORTextFieldView");
    EXPECT_EQ(classFor("QM4DashboardEditView"), "ZORDashboardEditView");
    EXPECT_EQ(classFor("QM4DirectionGaugeView"), "none");
    EXPECT_EQ(classFor("QM4"), "none");
    EXPECT_EQ(classFor("Unheard"), "NSNull");
    EXPECT_EQ(classFor(""), "NSNull");
}

}  // namespace
}  // namespace zor
