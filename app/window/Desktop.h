#pragma once

#include <QPointer>
#include <QStringList>
#include <memory>
#include <string>
#include <vector>

#include "app/PlugInLibrary.h"
#include "app/SiteSession.h"

class QWidget;

namespace zor {

class HelpWindow;
class HistoryStore;
class SiteWindow;
class WebAccess;
class WebAccessDialog;

/// The application with its windows: one for each open Site Document, and the help, which the plug-ins open too. Needs
/// a QtToolkit.
class Desktop {
public:
    explicit Desktop(const PlugInLibrary& plugIns);
    ~Desktop();

    const PlugInLibrary& plugIns() const { return plugIns_; }
    const std::vector<std::unique_ptr<SiteWindow>>& windows() const { return windows_; }

    /// A file or "demo". A document that is open already comes to the front. What goes wrong is told in a dialog on
    /// `parent`; false then.
    bool openSite(const QString& site, QWidget* parent);
    /// Asks which station, then opens a new document for it.
    bool newSite(QWidget* parent);
    /// What was open last, or the demo station the first time.
    void openLast();
    void showHelp(const QString& anchor);
    /// Asks whether browsers see the dashboards, in one dialog for all windows.
    void showWebAccess(QWidget* parent);
    /// Called by a window that has closed.
    void windowClosed(SiteWindow* window);
    /// Closes all windows, asking about unsaved documents; false where the person cancelled.
    bool quit();

    QStringList recentFiles() const;
    void noteRecentFile(const QString& file);

private:
    void show(std::shared_ptr<SiteSession> session);

    const PlugInLibrary& plugIns_;
    std::shared_ptr<HistoryStore> store_;
    std::vector<std::unique_ptr<SiteWindow>> windows_;
    std::unique_ptr<HelpWindow> help_;
    /// Ends before the documents that it serves.
    std::unique_ptr<WebAccess> webAccess_;
    QPointer<WebAccessDialog> webAccessDialog_;
};

}  // namespace zor
