#include "tests/dashboard/EditorFixture.h"

namespace zor {
namespace {

using test::framesOf;
using test::widgetsOn;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Clipboard : public test::EditorTest {
protected:
    void copySelection(const WidgetList& widgets) {
        dashboard->unselectAllObjects();
        for (const auto& widget : widgets) dashboard->selectObject(widget);
        dashboard->copySelection({});
    }
    /// What lies on the canvas above the first three.
    WidgetList pasted() const {
        const auto all = widgetsOn(canvas);
        return {all.begin() + 3, all.end()};
    }
};

/// An instrument whose class nobody registered.
class Unarchivable : public ZORInstrumentView {
public:
    const ClassRecord& classRecord() const override {
        static const ClassRecord record("UnarchivableTestInstrument", &ZORInstrumentView::staticClass());
        return record;
    }
};

TEST_F(Clipboard, HoldsAnArchiveOfTheWidgetsInTheSelectionsOrder) {
    copySelection({c, a});
    EXPECT_THAT(toolkit.pasteboard.types(), ElementsAre(std::string(widgetPasteType)));
    const auto root = KeyedUnarchiver::unarchivedRoot(toolkit.pasteboard.dataForType(widgetPasteType));
    ASSERT_TRUE(root);
    ASSERT_EQ(root->asArray().size(), 2u);
    EXPECT_EQ(root->asArray()[0].as<ZORWidgetHostView>()->frame(), c->frame());
    EXPECT_EQ(root->asArray()[1].as<ZORWidgetHostView>()->frame(), a->frame());
}

TEST_F(Clipboard, CopyingClearsWhatWasThere) {
    toolkit.pasteboard.setDataForType({1, 2, 3}, "text/plain");
    copySelection({a});
    EXPECT_THAT(toolkit.pasteboard.types(), ElementsAre(std::string(widgetPasteType)));
    EXPECT_EQ(undoSteps(), 0);
}

TEST_F(Clipboard, WhatCannotBeArchivedLeavesItEmpty) {
    a->setTargetView(std::make_shared<Unarchivable>());
    toolkit.pasteboard.setDataForType({1, 2, 3}, "text/plain");
    copySelection({a});
    EXPECT_THAT(toolkit.pasteboard.types(), IsEmpty());
}

TEST_F(Clipboard, CopyingWorksInViewModeWithNothingSelected) {
    dashboard->exitEditMode({});
    dashboard->copySelection({});
    const auto root = KeyedUnarchiver::unarchivedRoot(toolkit.pasteboard.dataForType(widgetPasteType));
    ASSERT_TRUE(root);
    EXPECT_TRUE(root->isArray());
    EXPECT_THAT(root->asArray(), IsEmpty());
}

TEST_F(Clipboard, PastingShiftsSelectsAndPutsOnTop) {
    a->setFrame({0, 0, 80, 60});
    b->setFrame({50, 60, 80, 60});
    copySelection({a, b});
    dashboard->selectObject(c);
    dashboard->paste({});
    EXPECT_EQ(framesOf(pasted()), (std::vector<Rect>{{10, -10, 80, 60}, {60, 50, 80, 60}}));
    EXPECT_EQ(selection(), pasted());
    EXPECT_FALSE(a->selected() || b->selected() || c->selected());
    EXPECT_THAT(test::zOrdersOn(canvas), ElementsAre(1, 2, 3, 4, 5));
    EXPECT_EQ(undoSteps(), 1);
}

TEST_F(Clipboard, PastingAgainLandsAtTheSamePlace) {
    copySelection({a});
    dashboard->paste({});
    dashboard->paste({});
    EXPECT_EQ(framesOf(pasted()), (std::vector<Rect>{{110, 90, 80, 60}, {110, 90, 80, 60}}));
    EXPECT_THAT(selection(), ElementsAre(pasted()[1]));
}

TEST_F(Clipboard, CopyingThePasteWalksOn) {
    copySelection({a});
    dashboard->paste({});
    dashboard->copySelection({});
    dashboard->paste({});
    EXPECT_EQ(framesOf(pasted()), (std::vector<Rect>{{110, 90, 80, 60}, {120, 80, 80, 60}}));
}

TEST_F(Clipboard, UndoRemovesExactlyWhatWasPasted) {
    copySelection({a, b});
    dashboard->paste({});
    dashboard->addLED({});
    const auto led = widgetsOn(canvas).back();
    dashboard->undo({});
    dashboard->undo({});
    EXPECT_THAT(widgetsOn(canvas), ElementsAre(a, b, c));
    EXPECT_FALSE(dashboard->undoManager()->canRedo());
}

TEST_F(Clipboard, AnEmptyPasteboardPastesNothingAndKeepsTheSelection) {
    dashboard->selectObject(a);
    dashboard->paste({});
    toolkit.pasteboard.setDataForType({1, 2, 3}, "text/plain");
    dashboard->paste({});
    EXPECT_THAT(widgetsOn(canvas), ElementsAre(a, b, c));
    EXPECT_THAT(selection(), ElementsAre(a));
    EXPECT_EQ(undoSteps(), 0);
}

TEST_F(Clipboard, DataThatIsNoArchivePastesNothing) {
    toolkit.pasteboard.setDataForType({1, 2, 3}, widgetPasteType);
    dashboard->paste({});
    EXPECT_THAT(widgetsOn(canvas), ElementsAre(a, b, c));
}

TEST_F(Clipboard, AnEmptyCollectionClearsTheSelectionAndIsAStep) {
    copySelection({});
    dashboard->selectObject(a);
    dashboard->paste({});
    EXPECT_THAT(selection(), IsEmpty());
    EXPECT_THAT(widgetsOn(canvas), ElementsAre(a, b, c));
    EXPECT_EQ(undoSteps(), 1);
}

TEST_F(Clipboard, PastingWorksInViewMode) {
    copySelection({a});
    dashboard->exitEditMode({});
    dashboard->paste({});
    EXPECT_EQ(pasted().size(), 1u);
}

TEST_F(Clipboard, PastedWidgetsShowTheAgentsProperties) {
    const auto property = agent->addProperty("outdoorTemperature", "Outdoor Temperature", Quantity::temperature);
    const auto field = ZORWidgetHostView::textFieldWithRect({10, 20, 100, 30});
    std::dynamic_pointer_cast<LinkedInstrumentView>(field->targetView())->setProperty(property);
    canvas->addSubview(field);
    copySelection({field});
    field->removeFromSuperview();
    dashboard->paste({});
    const auto target = std::dynamic_pointer_cast<LinkedInstrumentView>(pasted().at(0)->targetView());
    EXPECT_EQ(target->property(), property);
}

TEST_F(Clipboard, TravelsToAnotherDashboard) {
    copySelection({a});
    const auto other = test::dashboardOf({});
    other->paste({});
    EXPECT_EQ(framesOf(widgetsOn(other->editView())), (std::vector<Rect>{{110, 90, 80, 60}}));
}

class UndoRedo : public test::EditorTest {};

TEST_F(UndoRedo, OnlyWorkInEditMode) {
    dashboard->addLED({});
    dashboard->exitEditMode({});
    dashboard->undo({});
    EXPECT_EQ(widgetsOn(canvas).size(), 4u);
    EXPECT_EQ(undoSteps(), 1);
    dashboard->editDashboard({});
    dashboard->undo({});
    EXPECT_EQ(widgetsOn(canvas).size(), 3u);
}

TEST_F(UndoRedo, RedoAsksTheHistoryInEditModeOnly) {
    int redone = 0;
    const auto history = dashboard->undoManager();
    const auto registerRedo = [&](Object& target) {
        history->registerUndoWithTarget(target.shared_from_this(), [&](Object&) { ++redone; });
    };
    history->registerUndoWithTarget(dashboard, registerRedo);
    history->undo();
    dashboard->exitEditMode({});
    dashboard->redo({});
    EXPECT_EQ(redone, 0);
    dashboard->editDashboard({});
    dashboard->redo({});
    EXPECT_EQ(redone, 1);
}

TEST_F(UndoRedo, WithoutStepsNothingHappens) {
    dashboard->undo({});
    dashboard->redo({});
    EXPECT_THAT(widgetsOn(canvas), ElementsAre(a, b, c));
}

TEST_F(UndoRedo, SelectAllOnlyWorksInEditMode) {
    dashboard->exitEditMode({});
    dashboard->selectAll({});
    EXPECT_THAT(selection(), IsEmpty());
    dashboard->editDashboard({});
    dashboard->selectAll({});
    EXPECT_THAT(selection(), ElementsAre(a, b, c));
}

TEST_F(UndoRedo, ActionsReachTheDashboardByName) {
    dashboard->performWithSender("selectAll:", {});
    dashboard->performWithSender("copy:", {});
    dashboard->performWithSender("paste:", {});
    EXPECT_EQ(widgetsOn(canvas).size(), 6u);
    dashboard->performWithSender("undo:", {});
    EXPECT_EQ(widgetsOn(canvas).size(), 3u);
}

}  // namespace
}  // namespace zor
