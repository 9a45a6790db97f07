#include "app/window/AboutPlugIns.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QTextBrowser>
#include <QTimer>

#include "app/window/SiteWindow.h"
#include "tests/app/window/TestDesktop.h"

namespace zor {
namespace {

using ::testing::HasSubstr;

/// What the dialog shows, which is closed as soon as it has been read.
std::string shownAboutPlugIns() {
    std::string text = "nothing was shown";
    QTimer::singleShot(0, [&] {
        auto* const dialog = QApplication::activeModalWidget();
        if (!dialog) return;
        if (const auto* browser = dialog->findChild<QTextBrowser*>()) text = browser->toPlainText().toStdString();
        dialog->close();
    });
    showAboutPlugIns(test::siteWindow());
    return text;
}

TEST(AboutPlugIns, ShowsEachPlugInsOwnWords) {
    const std::string text = shownAboutPlugIns();
    EXPECT_THAT(text, HasSubstr("Dashboard Plug-In - Version 1.0 ("));
    EXPECT_THAT(text, HasSubstr("Dashboard provides custom screens that contain graphical elements such as labels, "
                                "gauges, and images."));
    EXPECT_THAT(text, HasSubstr("org.dashboard.plugin"));
}

TEST(AboutPlugIns, TellsWhichCouldNotBeLoaded) {
    EXPECT_THAT(shownAboutPlugIns(), HasSubstr("Damaged.zorplugin"));
}

}  // namespace
}  // namespace zor
