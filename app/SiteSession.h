#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "app/PlugInLibrary.h"
#include "app/StationFeed.h"
#include "host/station/SiteDocument.h"
#include "host/station/StationDriver.h"

namespace zor {

/// One open Site Document with the station behind it.
class SiteSession {
public:
    /// A new document for a station, without dashboards.
    static Result<std::shared_ptr<SiteSession>> startNew(AgentConfiguration configuration,
                                                         const PlugInLibrary& plugIns);
    /// A source of readings, with every dashboard of the catalogue.
    static Result<std::shared_ptr<SiteSession>> openSource(const std::string& source, const PlugInLibrary& plugIns);
    /// A saved document or a source, of which "demo" is the simulated one.
    static Result<std::shared_ptr<SiteSession>> open(const std::string& site, const PlugInLibrary& plugIns);
    ~SiteSession();

    const std::shared_ptr<SiteDocument>& document() const { return document_; }
    const std::shared_ptr<Agent>& agent() const { return document_->agent(); }

    /// Every dashboard of every catalogue is added; the first is selected.
    void addCatalogue();
    /// The title under which the catalogue lists what this dashboard was made from; a built-in dashboard's own may
    /// differ. Nothing where the dashboard comes from a document.
    std::optional<std::string> catalogueTitle(const std::shared_ptr<ZORPlugIn>& dashboard) const;
    /// The newest reading and the history, at once and in this thread; nothing runs afterwards. For pictures.
    void readOnce() { feed_.readOnce(); }
    /// The station's readings arrive from now on. Live readings go to the history store where there is one.
    void start(const std::shared_ptr<HistoryStore>& store) { feed_.start(store); }
    void stop() { feed_.stop(); }

    /// What is wrong with the station now; empty when it works.
    const std::string& trouble() const { return feed_.trouble(); }
    void setTroubleObserver(std::function<void()> observer) { feed_.setTroubleObserver(std::move(observer)); }

private:
    explicit SiteSession(std::shared_ptr<SiteDocument> document);
    /// The driver that the document asks for, its station connected.
    DriverResult connect();

    const std::shared_ptr<SiteDocument> document_;
    std::map<std::weak_ptr<ZORPlugIn>, std::string, std::owner_less<>> catalogueTitles_;
    StationFeed feed_;
};

/// The driver of that name; the error names an unknown driver or what is wrong with the settings.
DriverResult makeDriver(const AgentConfiguration& configuration);
/// The dashboards that the site window lists, in order.
std::vector<std::shared_ptr<ZORPlugIn>> dashboardsOf(const SiteDocument& document);

}  // namespace zor
