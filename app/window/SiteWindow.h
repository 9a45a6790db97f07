#pragma once

#include <QMainWindow>
#include <filesystem>
#include <memory>

#include "app/SiteSession.h"
#include "app/window/EditWatch.h"

class QLabel;
class QSplitter;

namespace zor {

class Desktop;
class PlugInList;
class SiteMenus;
class ViewTreeWidget;

/// The window of one Site Document: the list of its plug-ins, the toolbar with the plug-ins' items, and the selected
/// dashboard in a scrolling view.
class SiteWindow : public QMainWindow {
public:
    SiteWindow(Desktop& desktop, std::shared_ptr<SiteSession> session);
    ~SiteWindow() override;

    Desktop& desktop() const { return desktop_; }
    SiteDocument& document() const { return *session_->document(); }
    SiteWindowController& controller() const { return *document().siteWindowController(); }
    std::shared_ptr<ZORPlugIn> selectedDashboard() const { return controller().selectedPlugIn(); }
    const std::filesystem::path& file() const { return document().file(); }

    /// True where the document is saved now; false where the person cancelled or it cannot be saved, which is told.
    bool save();
    bool saveAs();
    void setUnitSystem(UnitSystem system);
    void setListVisible(bool visible);
    bool isListVisible() const;
    void toggleFullScreen();

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void makeToolbar();
    void restoreGeometryOfLastTime();
    void rememberGeometry();
    void refreshList();
    void refreshTitle();
    void refreshStatus();
    /// Says where the selected dashboard is when another window shows it.
    void refreshElsewhere();
    /// A dashboard that somebody has edited makes the document one to be saved.
    void noticeEdits();
    bool writeTo(const QString& file);

    Desktop& desktop_;
    std::shared_ptr<SiteSession> session_;
    QSplitter* splitter_ = nullptr;
    PlugInList* list_ = nullptr;
    ViewTreeWidget* canvasArea_ = nullptr;
    QLabel* elsewhereLabel_ = nullptr;
    QLabel* stationLabel_ = nullptr;
    QLabel* unlinkedLabel_ = nullptr;
    QLabel* troubleLabel_ = nullptr;
    std::unique_ptr<SiteMenus> menus_;
    EditWatch edits_;
};

}  // namespace zor
