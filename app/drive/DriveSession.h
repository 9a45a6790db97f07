#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "app/PlugInLibrary.h"
#include "app/drive/DriveToolkit.h"
#include "app/drive/Json.h"
#include "host/instruments/ZORImageView.h"
#include "host/instruments/ZORWidgetHostView.h"
#include "host/station/SiteDocument.h"

namespace zor {

/// One run of a script: the program's own view trees, windows, menus and sheets, driven line by line.
class DriveSession {
public:
    DriveSession(const PlugInLibrary& plugIns, DriveToolkit& toolkit);
    ~DriveSession();

    /// Carries one line out and gives the answer to print. A line that cannot be carried out changes nothing.
    std::string answer(const std::string& line);

private:
    using Handler = Json (DriveSession::*)(const Fields&);
    static const std::map<std::string, Handler, std::less<>>& handlers();
    Json carryOut(const Json& line);

    // Documents and dashboards (DriveDocuments.cpp)
    Json newDocument(const Fields& line);
    Json catalogue(const Fields& line);
    Json dashboards(const Fields& line);
    Json select(const Fields& line);
    Json detach(const Fields& line);
    Json remove(const Fields& line);
    Json roundtrip(const Fields& line);
    Json save(const Fields& line);
    Json open(const Fields& line);
    Json writePng(const Fields& line);
    Json writePdf(const Fields& line);

    // The toolbar plug-in, its window and its web service (DriveToolbar.cpp)
    Json performOnToolbar(const Fields& line);
    Json clickRow(const Fields& line);
    Json web(const Fields& line);
    Json advertise(const Fields& line);
    Json selectionWindowState() const;
    std::shared_ptr<ZORPlugIn> toolbarFor(const Fields& line) const;
    /// Refuses a row that the catalogue does not have.
    void requireRow(const Fields& line, const char* key, const Value& row) const;

    // Events and commands (DriveEvents.cpp)
    Json press(const Fields& line);
    Json drag(const Fields& line);
    Json release(const Fields& line);
    Json rightPress(const Fields& line);
    Json choose(const Fields& line);
    Json key(const Fields& line);
    Json action(const Fields& line);
    Json command(const Fields& line);
    Json pasteboard(const Fields& line);
    Json pointer(const Fields& line);
    Json queueAnswer(const Fields& line);

    // Asking (DriveQueries.cpp, DriveState.cpp)
    Json query(const Fields& line);
    Json drawing(const Fields& line);
    Json state(const Fields& line);

    // Setting (DriveSetters.cpp)
    Json set(const Fields& line);
    void setWidget(const Fields& line, ZORWidgetHostView& widget);
    void setCanvas(const Fields& line, ZORImageView& canvas);
    void setDashboard(const Fields& line, ZORPlugIn& dashboard);
    void setAgent(const Fields& line);

    std::shared_ptr<ZORPlugIn> dashboard() const;
    /// Refuses the line where there is no dashboard, or none with a canvas.
    std::shared_ptr<ZORPlugIn> dashboardFor(const Fields& line) const;
    std::shared_ptr<ZORImageView> canvasOf(const std::shared_ptr<ZORPlugIn>& dashboard) const;
    std::shared_ptr<ZORImageView> canvasFor(const Fields& line) const;
    std::shared_ptr<ZORPlugIn> toolbar() const;
    /// The number of a dashboard of the list.
    std::size_t listIndex(const Fields& line) const;
    /// The one that shows the current dashboard: the site window, or a separate one.
    Window* window() const;
    void adopt(std::shared_ptr<SiteDocument> document);
    /// Begins anew with the dashboard that is selected now: nobody has the keyboard, and a right press counts no more.
    void showSelected();
    void setViewport(Point viewOrigin, Size viewport);
    Point windowPoint(const Fields& line) const;
    /// Gives the canvas's new widgets their ids.
    void lookOverCanvas();
    /// A run of many documents holds no more than the present one needs; ids are never given twice.
    void forgetGoneWidgets();
    Json idOf(const ZORWidgetHostView& widget) const;
    Json widgetState(const ZORWidgetHostView& widget) const;
    Json panelState(const ObjectPtr& dashboard) const;
    Json writePicture(const Fields& line, const Value& data);

    const PlugInLibrary& plugIns_;
    DriveToolkit& toolkit_;
    std::shared_ptr<SiteDocument> document_;
    std::unordered_map<std::int64_t, std::int64_t> idsByHash_;
    std::map<std::int64_t, std::weak_ptr<ZORWidgetHostView>> widgetsById_;
    std::int64_t lastId_ = 0;
    std::vector<std::string> log_;
    /// Of the last right press, unless a left one came after it; the view may be gone.
    std::optional<std::weak_ptr<View>> rightPressedView_;
    Rect plugInFrame_;
};

/// A widget from {kind, frame, title, property}, linked to the agent's property of that name.
std::shared_ptr<ZORWidgetHostView> makeWidget(const Fields& description, const std::shared_ptr<Agent>& agent);
/// A property from {value, unit}; throws LineError.
void setProperty(Property& property, const Fields& description, Seconds receivedAt);
std::uint32_t modifierFlags(const Fields& line);
int clickCount(const Fields& line);

}  // namespace zor
