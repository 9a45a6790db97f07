#include "app/SiteSession.h"

#include <algorithm>

#include "app/StationSource.h"
#include "host/instruments/StandardWidgets.h"
#include "stations/simulator/SimulatedStation.h"
#include "stations/weewx/WeewxStation.h"

namespace zor {

DriverResult makeDriver(const AgentConfiguration& configuration) {
    if (configuration.driver == "simulated") return SimulatedStation::create(configuration.settings);
    if (configuration.driver == "weewx") return WeewxStation::create(configuration.settings);
    return Error{"there is no station driver named \"" + configuration.driver + "\" (there are simulated and weewx)"};
}

std::vector<std::shared_ptr<ZORPlugIn>> dashboardsOf(const SiteDocument& document) {
    return document.siteWindowController()->plugIns();
}

Result<std::shared_ptr<SiteSession>> SiteSession::startNew(AgentConfiguration configuration,
                                                           const PlugInLibrary& plugIns) {
    auto agent = Agent::withName("Station");
    agent->setConfiguration(std::move(configuration));
    std::shared_ptr<SiteSession> session(new SiteSession(SiteDocument::create(agent, plugIns.bundles())));
    const auto driver = session->connect();
    if (!driver) return driver.error();
    agent->setName((*driver)->stationName());
    return session;
}

Result<std::shared_ptr<SiteSession>> SiteSession::openSource(const std::string& source, const PlugInLibrary& plugIns) {
    auto configuration = configurationOfSource(source);
    if (!configuration) return configuration.error();
    auto session = startNew(std::move(*configuration), plugIns);
    if (session) (*session)->addCatalogue();
    return session;
}

Result<std::shared_ptr<SiteSession>> SiteSession::open(const std::string& site, const PlugInLibrary& plugIns) {
    if (site == "demo") return openSource("simulated", plugIns);
    if (namesSource(site)) return openSource(site, plugIns);
    auto document = SiteDocument::open(site, plugIns.bundles());
    if (!document) return document.error();
    std::shared_ptr<SiteSession> session(new SiteSession(*document));
    // A station that cannot be reached does not keep the document from opening.
    if (const auto driver = session->connect(); !driver) session->feed_.setTrouble(driver.error().message);
    return session;
}

SiteSession::SiteSession(std::shared_ptr<SiteDocument> document)
    : document_(std::move(document)), feed_(document_->agent()) {}

SiteSession::~SiteSession() {
    stop();
    document_->close();
}

DriverResult SiteSession::connect() {
    agent()->setDashboardWidgetsMaker(standardWidgets);
    auto driver = makeDriver(agent()->configuration());
    // The properties must be there before a dashboard is built for them.
    if (driver) feed_.connect(*driver);
    return driver;
}

void SiteSession::addCatalogue() {
    const auto controller = document_->siteWindowController();
    for (const auto& entry : document_->entryPlugIns()) {
        const auto rows = entry->perform("dashboardsArray").asArray();
        for (std::size_t row = 0; row < rows.size(); ++row) {
            const Value argument = static_cast<std::int64_t>(row);
            const auto made = entry->perform("dashboardForRow:", {&argument, 1}).as<ZORPlugIn>();
            if (!made) continue;
            controller->addPlugIn(made, false, false);
            catalogueTitles_[made] = rows[row]["title"].asString();
        }
    }
    if (!controller->plugIns().empty()) controller->selectPlugInAtIndex(0);
    // Nothing of it is a person's work yet.
    document_->setDirty(false);
}

std::optional<std::string> SiteSession::catalogueTitle(const std::shared_ptr<ZORPlugIn>& dashboard) const {
    const auto found = catalogueTitles_.find(dashboard);
    return found == catalogueTitles_.end() ? std::nullopt : std::optional(found->second);
}

}  // namespace zor
