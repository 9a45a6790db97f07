#include <QWidget>

#include "app/Commands.h"
#include "app/Runtime.h"
#include "app/window/Appearance.h"
#include "app/window/Desktop.h"
#include "app/window/SiteWindow.h"

namespace zor {

namespace {

int run(std::span<const std::string> words) {
    for (const auto& word : words) {
        if (word.starts_with("-")) return failUsage(openCommand, "unknown option " + word);
    }
    if (!hasDisplay()) return fail("there is no display for a window; station serve SITE needs none");
    DesktopRuntime runtime;
    applyChosenAppearance();
    Desktop desktop(runtime.plugIns());
    if (words.empty()) desktop.openLast();
    for (const auto& word : words) desktop.openSite(QString::fromStdString(word), nullptr);
    if (desktop.windows().empty()) return 1;
    return runtime.runEventLoop();
}

}  // namespace

const Command openCommand{"open", "open [SITE ...]", "Opens the window; without SITE what was open last.", run};

}  // namespace zor
