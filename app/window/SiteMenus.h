#pragma once

#include <QKeySequence>
#include <QPoint>
#include <functional>

class QAction;
class QMenu;
class QMenuBar;
class QWidget;

namespace zor {

class DashboardMenus;
class SiteWindow;

/// The menu bar of a site window.
class SiteMenus {
public:
    /// `canvas` is the part of the window that shows the dashboard.
    SiteMenus(SiteWindow& window, QWidget& canvas);
    /// The catalogue as a menu at a place on the screen.
    void popUpCatalogue(const QPoint& position);

private:
    QAction* add(QMenu& menu, const QString& text, const QKeySequence& shortcut, std::function<void()> perform);
    void addSender(QMenu& menu, const QString& text, const QKeySequence& shortcut, const char* action);
    void makeFileMenu();
    void makeViewMenu();
    void makeWindowMenu();
    void makeHelpMenu();
    void fillCatalogue(QMenu& menu);
    void fillRecentFiles(QMenu& menu);

    SiteWindow& window_;
    QMenuBar& bar_;
    QMenu* catalogue_ = nullptr;
    DashboardMenus* dashboard_ = nullptr;
};

}  // namespace zor
