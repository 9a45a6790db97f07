// The menus Edit, Insert and Arrange over a live dashboard: what they offer, when, and that it arrives.

#include <gmock/gmock.h>

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>

#include "app/window/SiteWindow.h"
#include "host/foundation/UndoManager.h"
#include "host/instruments/ZORWidgetHostView.h"
#include "host/views/Toolkit.h"
#include "tests/app/window/TestDesktop.h"

namespace zor {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class DashboardMenusTest : public ::testing::Test {
protected:
    void SetUp() override {
        Toolkit::current().generalPasteboard().clearContents();
        // A dashboard of the test's own, with three widgets that lie where they were put.
        window().controller().addPlugIn(window().selectedDashboard()->copyWithZone(), true);
        dashboard()->performWithSender("editDashboard:", {});
        dashboard()->performWithSender("selectAllObjects", {});
        dashboard()->performWithSender("deleteObject:", {});
        for (int count = 0; count < 3; ++count) dashboard()->performWithSender("addLED:", {});
        for (std::size_t index = 0; index < 3; ++index) widget(index)->setFrame({100.0 * index, 50, 40, 40});
        dashboard()->setValueForKey("undoManager", Value(std::make_shared<UndoManager>()));
    }
    void TearDown() override {
        auto& controller = window().controller();
        controller.removePlugInAtIndex(static_cast<std::size_t>(controller.selectedIndex()));
        controller.selectPlugInAtIndex(0);
    }

    static SiteWindow& window() { return test::siteWindow(); }
    static std::shared_ptr<ZORPlugIn> dashboard() { return window().selectedDashboard(); }
    static std::shared_ptr<View> canvas() { return dashboard()->valueForKey("editView").as<View>(); }
    static std::shared_ptr<ZORWidgetHostView> widget(std::size_t index) {
        return std::dynamic_pointer_cast<ZORWidgetHostView>(canvas()->subviews()[index]);
    }
    void select(const std::vector<std::size_t>& indices) {
        Value::Array chosen;
        for (const auto index : indices) chosen.emplace_back(widget(index));
        dashboard()->setValueForKey("selectedObjects", Value(chosen));
    }
    void edit(bool on) { dashboard()->performWithSender(on ? "editDashboard:" : "exitEditMode:", {}); }

    /// Open, as far as those who fill it in are concerned.
    static QMenu& menu(const QString& title) {
        for (QAction* each : window().menuBar()->actions()) {
            if (each->text() != title) continue;
            emit each->menu()->aboutToShow();
            return *each->menu();
        }
        throw std::runtime_error("there is no menu " + title.toStdString());
    }
    static QAction& entry(const QString& title, const QString& text) {
        for (QAction* each : menu(title).actions()) {
            if (QString(each->text()).remove('&') == text) return *each;
        }
        throw std::runtime_error("there is no entry " + text.toStdString());
    }
    static std::vector<std::string> texts(const QString& title, bool onlyEnabled) {
        std::vector<std::string> found;
        for (QAction* each : menu(title).actions()) {
            if (!each->isSeparator() && (each->isEnabled() || !onlyEnabled)) {
                found.push_back(QString(each->text()).remove('&').toStdString());
            }
        }
        return found;
    }
    static std::vector<std::string> enabled(const QString& title) { return texts(title, true); }
};

TEST_F(DashboardMenusTest, EditHasTheUsualEntriesAndShortcutsAndNoCut) {
    EXPECT_THAT(texts("&Edit", false),
                ElementsAre("Undo", "Redo", "Copy", "Paste", "Select All", "Duplicate", "Delete", "Properties"));
    EXPECT_EQ(entry("&Edit", "Undo").shortcut(), QKeySequence(QKeySequence::Undo));
    EXPECT_EQ(entry("&Edit", "Redo").shortcut(), QKeySequence(QKeySequence::Redo));
    EXPECT_EQ(entry("&Edit", "Copy").shortcut(), QKeySequence("Ctrl+C"));
    EXPECT_EQ(entry("&Edit", "Paste").shortcut(), QKeySequence("Ctrl+V"));
    EXPECT_EQ(entry("&Edit", "Select All").shortcut(), QKeySequence("Ctrl+A"));
    EXPECT_EQ(entry("&Edit", "Duplicate").shortcut(), QKeySequence("Ctrl+D"));
    EXPECT_EQ(entry("&Edit", "Delete").shortcut(), QKeySequence("Del"));
}

TEST_F(DashboardMenusTest, InViewModeThereIsNothingToDo) {
    edit(false);
    EXPECT_THAT(enabled("&Edit"), IsEmpty());
    EXPECT_THAT(enabled("&Insert"), IsEmpty());
    EXPECT_THAT(enabled("&Arrange"), IsEmpty());
}

TEST_F(DashboardMenusTest, WithoutADashboardThereIsNothingToDo) {
    const auto place = window().controller().selectedIndex();
    window().controller().selectPlugInAtIndex(-1);
    EXPECT_THAT(enabled("&Edit"), IsEmpty());
    EXPECT_THAT(enabled("&Insert"), IsEmpty());
    EXPECT_THAT(enabled("&Arrange"), IsEmpty());
    window().controller().selectPlugInAtIndex(place);
}

TEST_F(DashboardMenusTest, WithoutASelectionThereIsOnlySelectAll) {
    EXPECT_THAT(enabled("&Edit"), ElementsAre("Select All"));
}

TEST_F(DashboardMenusTest, WithASelectionItCanBeCopiedDuplicatedDeletedAndSetUp) {
    select({1});
    EXPECT_THAT(enabled("&Edit"), ElementsAre("Copy", "Select All", "Duplicate", "Delete", "Properties"));
}

TEST_F(DashboardMenusTest, SelectAllNeedsAWidgetThatIsNotSelected) {
    select({2, 0});
    EXPECT_TRUE(entry("&Edit", "Select All").isEnabled());
    select({2, 0, 1});
    EXPECT_FALSE(entry("&Edit", "Select All").isEnabled());
    dashboard()->performWithSender("deleteObject:", {});
    EXPECT_FALSE(entry("&Edit", "Select All").isEnabled());
}

TEST_F(DashboardMenusTest, UndoNeedsEditModeAndAStep) {
    EXPECT_FALSE(entry("&Edit", "Undo").isEnabled());
    dashboard()->performWithSender("addBox:", {});
    EXPECT_TRUE(entry("&Edit", "Undo").isEnabled());
    edit(false);
    EXPECT_FALSE(entry("&Edit", "Undo").isEnabled());
    edit(true);
    entry("&Edit", "Undo").trigger();
    EXPECT_EQ(canvas()->subviews().size(), 3U);
    EXPECT_FALSE(entry("&Edit", "Undo").isEnabled());
}

TEST_F(DashboardMenusTest, RedoIsNeverThere) {
    dashboard()->performWithSender("addBox:", {});
    EXPECT_FALSE(entry("&Edit", "Redo").isEnabled());
    entry("&Edit", "Undo").trigger();
    EXPECT_FALSE(entry("&Edit", "Redo").isEnabled());
}

TEST_F(DashboardMenusTest, PasteNeedsWidgetsOnThePasteboardInEitherMode) {
    Toolkit::current().generalPasteboard().setDataForType({0x41}, "text/plain");
    EXPECT_FALSE(entry("&Edit", "Paste").isEnabled());
    select({0});
    entry("&Edit", "Copy").trigger();
    EXPECT_TRUE(entry("&Edit", "Paste").isEnabled());
    edit(false);
    EXPECT_TRUE(entry("&Edit", "Paste").isEnabled());
    entry("&Edit", "Paste").trigger();
    ASSERT_EQ(canvas()->subviews().size(), 4U);
    EXPECT_EQ(widget(3)->frame(), (Rect{10, 40, 40, 40}));
}

TEST_F(DashboardMenusTest, EveryKindIsInsertedWithATip) {
    const std::vector<std::pair<QString, std::string>> kinds{{"Text Label", "textField"},
                                                             {"Date and Time", "dateTimeField"},
                                                             {"Box", "box"},
                                                             {"Image", "imageView"},
                                                             {"LED", "led"},
                                                             {"Level Indicator", "levelIndicator"},
                                                             {"Round Gauge", "roundGauge"},
                                                             {"Linear Gauge", "linearGauge"},
                                                             {"Plot", "plotView"},
                                                             {"Map View", "mapView"},
                                                             {"Web View", "webView"}};
    EXPECT_EQ(enabled("&Insert").size(), kinds.size());
    EXPECT_TRUE(menu("&Insert").toolTipsVisible());
    for (const auto& [text, kind] : kinds) {
        QAction& action = entry("&Insert", text);
        EXPECT_FALSE(action.toolTip().isEmpty() || action.toolTip() == text) << text.toStdString();
        action.trigger();
        EXPECT_EQ(widget(canvas()->subviews().size() - 1)->kind(), kind);
    }
}

TEST_F(DashboardMenusTest, ArrangingHasTips) {
    EXPECT_TRUE(menu("&Arrange").toolTipsVisible());
    EXPECT_THAT(texts("&Arrange", false), ElementsAre("Align Top Edges", "Align Left Edges", "Align Bottom Edges",
                                                      "Align Right Edges", "Bring to Front", "Send to Back"));
    for (QAction* each : menu("&Arrange").actions()) {
        if (each->isSeparator()) continue;
        EXPECT_NE(each->toolTip(), QString(each->text()).remove('&'));
    }
}

TEST_F(DashboardMenusTest, AligningNeedsTwo) {
    EXPECT_THAT(enabled("&Arrange"), IsEmpty());
    select({1});
    EXPECT_THAT(enabled("&Arrange"), ElementsAre("Bring to Front", "Send to Back"));
    select({0, 1});
    EXPECT_THAT(enabled("&Arrange"), ElementsAre("Align Top Edges", "Align Left Edges", "Align Bottom Edges",
                                                 "Align Right Edges", "Bring to Front", "Send to Back"));
    entry("&Arrange", "Align Left Edges").trigger();
    EXPECT_EQ(widget(1)->frame().x, 0);
}

TEST_F(DashboardMenusTest, StackingNeedsSomethingInTheWay) {
    select({2});
    EXPECT_THAT(enabled("&Arrange"), ElementsAre("Send to Back"));
    select({0});
    EXPECT_THAT(enabled("&Arrange"), ElementsAre("Bring to Front"));
    const auto lowest = widget(0);
    entry("&Arrange", "Bring to Front").trigger();
    EXPECT_EQ(widget(2), lowest);
}

TEST_F(DashboardMenusTest, ACommandTakesTheKeyboardFromTheListToTheDashboard) {
    window().findChild<QWidget*>("plugIns")->setFocus();
    ASSERT_EQ(window().focusWidget()->objectName(), "plugIns");
    entry("&Edit", "Select All").trigger();
    EXPECT_EQ(window().focusWidget()->objectName(), "dashboard");
}

TEST_F(DashboardMenusTest, TheCanvasAloneIsOnlySetUp) {
    const auto container = canvas()->superview()->shared_from_this();
    dashboard()->setValueForKey("selectedObjects", Value(Value::Array{Value(container)}));
    EXPECT_THAT(enabled("&Edit"), ElementsAre("Select All", "Properties"));
    EXPECT_THAT(enabled("&Arrange"), IsEmpty());
}

}  // namespace
}  // namespace zor
