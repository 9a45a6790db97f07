// Where the help book opens for each of those who ask for help.

#include "app/window/HelpWindow.h"

#include <gmock/gmock.h>

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QTextBlock>
#include <set>
#include <stdexcept>

#include "app/window/Desktop.h"
#include "app/window/SiteWindow.h"
#include "tests/app/window/TestDesktop.h"

namespace zor {
namespace {

class HelpWindowTest : public ::testing::Test {
protected:
    void SetUp() override {
        test::desktop().showHelp({});
        // So low that every chapter is longer than what is seen of it.
        help().resize(720, 250);
        QCoreApplication::processEvents();
        scrollAway();
    }
    void TearDown() override { help().hide(); }

    static HelpWindow& help() {
        for (auto* each : QApplication::topLevelWidgets()) {
            if (auto* window = dynamic_cast<HelpWindow*>(each)) return *window;
        }
        throw std::runtime_error("the help was never opened");
    }
    /// To where no chapter begins, with the book put away.
    static void scrollAway() {
        help().showAnchor("webaccess");
        help().showAnchor("dashboards");
        help().moveCursor(QTextCursor::End);
        help().ensureCursorVisible();
        help().hide();
    }
    /// The text that stands at the top of the window.
    static std::string top() { return help().cursorForPosition({60, 10}).block().text().toStdString(); }
    static void chooseHelp(const QString& text) {
        for (QAction* title : test::siteWindow().menuBar()->actions()) {
            if (title->text() != "&Help") continue;
            for (QAction* each : title->menu()->actions()) {
                if (QString(each->text()).remove('&') == text) return each->trigger();
            }
        }
        ADD_FAILURE() << "there is no entry " << text.toStdString();
    }
};

TEST_F(HelpWindowTest, AChapterBeginsAtTheTop) {
    const std::vector<std::pair<QString, std::string>> chapters{{"station", "Station"},
                                                                {"dashboards", "Adding dashboards"},
                                                                {"dashboard", "A dashboard"},
                                                                {"webaccess", "Web Access"}};
    for (const auto& [anchor, heading] : chapters) {
        test::desktop().showHelp(anchor);
        EXPECT_TRUE(help().isVisible());
        EXPECT_EQ(top(), heading);
        scrollAway();
        EXPECT_NE(top(), heading);
    }
}

TEST_F(HelpWindowTest, WithoutAnAnchorOrWithAnUnknownOneItOpensAtTheBeginning) {
    for (const char* anchor : {"", "barometers"}) {
        test::desktop().showHelp(anchor);
        EXPECT_EQ(top(), "Station");
        scrollAway();
    }
}

TEST_F(HelpWindowTest, ADashboardOpensItsOwnChapter) {
    test::siteWindow().selectedDashboard()->showHelp();
    EXPECT_TRUE(help().isVisible());
    EXPECT_EQ(top(), "A dashboard");
}

TEST_F(HelpWindowTest, TheMenuOpensTheChapterOfWhatIsShown) {
    chooseHelp("Station Help");
    EXPECT_EQ(top(), "A dashboard");
    scrollAway();
    auto& controller = test::siteWindow().controller();
    const auto shown = controller.selectedIndex();
    controller.selectPlugInAtIndex(-1);
    chooseHelp("Station Help");
    EXPECT_EQ(top(), "Station");
    controller.selectPlugInAtIndex(shown);
}

TEST_F(HelpWindowTest, TheMenuOpensTheChapterOfAPlugIn) {
    chooseHelp("Dashboard Help");
    EXPECT_TRUE(help().isVisible());
    EXPECT_EQ(top(), "Adding dashboards");
}

TEST_F(HelpWindowTest, EveryLinkLeadsToAChapter) {
    std::set<QString> links;
    for (auto block = help().document()->begin(); block.isValid(); block = block.next()) {
        for (auto fragment = block.begin(); !fragment.atEnd(); ++fragment) {
            const QString link = fragment.fragment().charFormat().anchorHref();
            if (!link.isEmpty()) links.insert(link);
        }
    }
    EXPECT_THAT(links, ::testing::Not(::testing::IsEmpty()));
    for (const auto& link : links) {
        ASSERT_TRUE(link.startsWith('#')) << link.toStdString();
        help().showAnchor(link.mid(1));
        // The beginning is where an anchor leads that is not there.
        EXPECT_NE(top(), "Station") << link.toStdString();
    }
}

}  // namespace
}  // namespace zor
