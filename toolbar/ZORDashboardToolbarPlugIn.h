#pragma once

#include <mutex>
#include <optional>
#include <string>

#include "dashboard/ZORDashboardPlugIn.h"
#include "host/foundation/KeyedArchiver.h"
#include "host/views/Controls.h"
#include "host/views/Panels.h"

namespace zor {

/// The plug-in's entry object, one per Site Document: toolbar item, catalogue, builders of the built-in dashboards,
/// import, web service.
class ZORDashboardToolbarPlugIn : public ZORPlugIn, public KeyedUnarchiverDelegate {
public:
    static const ClassRecord& staticClass();
    const ClassRecord& classRecord() const override { return staticClass(); }

    /// Activates the plug-in's fonts, once per process however often it is called.
    static void initialize();
    static std::shared_ptr<ZORDashboardToolbarPlugIn> initWithAgent(
        const std::shared_ptr<Agent>& agent, const std::shared_ptr<SiteWindowController>& siteWindowController);
    bool initWithCoder(Decoder& decoder) override;
    void encodeWithCoder(Encoder& encoder) override;

    // Builders
    std::shared_ptr<ZORDashboardPlugIn> currentWeatherPlugIn();
    std::shared_ptr<ZORDashboardPlugIn> cleanSlatePlugIn();
    std::shared_ptr<ZORDashboardPlugIn> standardDashboardPlugIn();
    std::shared_ptr<ZORDashboardPlugIn> quadPlotsPlugIn();

    // Catalogue
    /// Five dictionaries {"title", "selector" or "filename", "description"}, the same array for the whole process.
    std::shared_ptr<const Value::Array> dashboardsArray();
    /// A new dashboard for a row of the catalogue, added nowhere; empty where its resource is missing. A row outside
    /// the catalogue is a programmer's error and gives nothing.
    std::shared_ptr<ZORDashboardPlugIn> dashboardForRow(std::size_t row);

    // Selection window: a sheet with the catalogue on its first page and the chosen entry on its second
    std::string interfaceName() const override { return "SelectionWindow"; }
    void awakeFromNib() override;
    /// From page 1, with the row chosen last. Nothing without the interface file.
    void showDashboardSelectionWindow();
    /// Shows the entry's description and takes its title; every row may be selected. The list may be absent.
    bool tableViewShouldSelectRow(const std::shared_ptr<TableView>& list, std::size_t row);
    void importClicked(const ObjectPtr& sender);
    void doneClicked(const ObjectPtr& sender);
    void continueClicked(const ObjectPtr& sender);
    void cancelClicked(const ObjectPtr& sender);
    void backClicked(const ObjectPtr& sender);

    // Import: asks for a file and adds what it holds; a file of another agent brings a warning first
    void importDashboard(const ObjectPtr& sender);
    /// Binds each instrument to the agent's property of the name that it holds, or to none; one log line for each.
    void relinkDashboardWidgetsToProperties(const std::shared_ptr<ZORDashboardEditView>& canvas);
    const ClassRecord* unarchiverCannotDecodeObjectOfClassName(const std::string& className,
                                                               std::span<const std::string> originalClasses) override;

    // Web service: "ID.png" and "ID.pdf" for the dashboard with that identifier
    std::string webServiceAdvertisementForBaseURL(const std::string& baseURL) override;
    std::string webServiceAdvertisementOnMainThreadForBaseURL(const std::string& baseURL);
    std::shared_ptr<DataResponse> webServiceResponseForRequest(const WebRequest& request) override;

    void didLoad() override { ZORPlugIn::didLoad(); }
    void willUnload() override { ZORPlugIn::willUnload(); }

    std::shared_ptr<ToolbarItem> toolbarItem() override;
    void toolbarItemAction(const ObjectPtr&) { showDashboardSelectionWindow(); }

    // Descriptions
    std::string name() const override { return "Dashboard"; }
    std::string textDescription() const override;
    std::string htmlDescription() const override;
    std::optional<std::string> xmlDescription() const override { return {}; }
    std::optional<std::string> jsonDescription() const override { return {}; }
    std::shared_ptr<Image> icon() const override;
    Value group() const override { return 0; }
    void showHelp() override;

    // Fields; the outlets are held weakly
    std::optional<std::string> lastUsedTitle() const { return lastUsedTitle_; }
    void setLastUsedTitle(std::optional<std::string> title) { lastUsedTitle_ = std::move(title); }
    std::shared_ptr<Window> configurationWindow() const { return configurationWindow_.lock(); }
    void setConfigurationWindow(const std::shared_ptr<Window>& window) { configurationWindow_ = window; }
    std::shared_ptr<View> page1() const { return page1_.lock(); }
    void setPage1(const std::shared_ptr<View>& page) { page1_ = page; }
    std::shared_ptr<View> page2() const { return page2_.lock(); }
    void setPage2(const std::shared_ptr<View>& page) { page2_ = page; }
    std::shared_ptr<TableView> tableView() const { return tableView_.lock(); }
    void setTableView(const std::shared_ptr<TableView>& table) { tableView_ = table; }
    std::shared_ptr<View> detailView() const { return detailView_.lock(); }
    void setDetailView(const std::shared_ptr<View>& view) { detailView_ = view; }
    std::shared_ptr<TextField> descriptionView() const { return descriptionView_.lock(); }
    void setDescriptionView(const std::shared_ptr<TextField>& field) { descriptionView_ = field; }
    std::optional<std::string> dashboardTitle() const { return dashboardTitle_; }
    void setDashboardTitle(std::optional<std::string> title) { dashboardTitle_ = std::move(title); }

private:
    /// The hook that both initialisers call last.
    void initCommon() {}
    std::shared_ptr<ZORDashboardPlugIn> dashboardFromResource(const std::string& filename);
    /// A new dashboard that shows a canvas read from a file.
    std::shared_ptr<ZORDashboardPlugIn> dashboardWithCanvas(std::shared_ptr<ZORDashboardEditView> canvas,
                                                            std::optional<std::string> title);
    void addSelectedDashboard();
    void endSelectionSheet(int code);
    void importFile(const std::shared_ptr<OpenPanel>& panel);
    void installDashboard(const std::shared_ptr<ZORDashboardEditView>& canvas, const std::optional<std::string>& title);

    std::optional<std::string> lastUsedTitle_;
    std::weak_ptr<Window> configurationWindow_;
    std::weak_ptr<View> page1_;
    std::weak_ptr<View> page2_;
    std::weak_ptr<TableView> tableView_;
    std::weak_ptr<View> detailView_;
    std::weak_ptr<TextField> descriptionView_;
    std::optional<std::string> dashboardTitle_;
    std::recursive_mutex monitor_;
};

}  // namespace zor
