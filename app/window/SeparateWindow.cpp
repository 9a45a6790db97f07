#include "app/window/SeparateWindow.h"

#include <QAction>

#include "app/window/DashboardMenus.h"
#include "app/window/SiteWindow.h"
#include "qt/QtWindowPeer.h"

namespace zor {

void openSeparateWindow(SiteWindow& site, const std::shared_ptr<ZORPlugIn>& dashboard) {
    const bool isOpen = site.document().isInSeparateWindow(*dashboard);
    const auto shown = site.document().showInSeparateWindow(dashboard);
    QWidget* widget = QtWindowPeer::widgetOf(shown->window().get());
    // What is open already has its keys.
    if (isOpen || !widget) return;
    const std::weak_ptr<ZORPlugIn> weakDashboard = dashboard;
    auto* menus =
        new DashboardMenus(*widget, *widget, shown->window(), [weakDashboard] { return weakDashboard.lock(); });
    menus->addKeys();
    const auto addKey = [widget](const QKeySequence& keys, QObject* owner, auto perform) {
        auto* action = new QAction(widget);
        action->setShortcut(keys);
        widget->addAction(action);
        QObject::connect(action, &QAction::triggered, owner, std::move(perform));
    };
    addKey(QKeySequence(Qt::CTRL | Qt::Key_E), menus, [menus] { menus->toggleEditMode(); });
    addKey(QKeySequence::Print, menus, [menus] { menus->send("printDocument"); });
    addKey(QKeySequence::Close, widget, [widget] { widget->close(); });
    addKey(QKeySequence::Save, &site, [&site] { site.save(); });
}

}  // namespace zor
