#include "host/foundation/Bundle.h"
#include "host/foundation/KeyedArchiver.h"
#include "host/foundation/SafeFile.h"
#include "toolbar/ZORDashboardToolbarPlugIn.h"

namespace zor {

namespace {

Value entry(std::string title, std::string kind, std::string name, std::string description) {
    return Value::Dictionary{
        {"title", std::move(title)}, {std::move(kind), std::move(name)}, {"description", std::move(description)}};
}

Value::Array makeCatalogue() {
    return {
        entry("Standard Dashboard", "selector", "standardDashboardPlugIn",
              "This Dashboard shows the current weather using a mixture of gauges and labels with custom fonts.\n\n"
              "Contains:\n"
              "    \u2022 Wind Speed & Direction\n"
              "    \u2022 Barometric Pressure\n"
              "    \u2022 Temperature\n"
              "    \u2022 Humidity\n"
              "    \u2022 Dew Point"),
        entry("Current Weather", "selector", "currentWeatherPlugIn",
              "This Dashboard shows the current weather in a small area with various font styles.\n\n"
              "Use this as a starting point for your own custom dashboard.\n\n"
              "Contains:\n"
              "    \u2022 Temperature\n"
              "    \u2022 Humidity\n"
              "    \u2022 Heat Index"),
        entry("Hi-Def Dashboard", "filename", "Hi-Def",
              "This Dashboard shows the current weather sized for a larger screen. It contains both indoor and outdoor "
              "wdigets, and is suitable for Davis weather stations.\n\n"
              "If you have another station, you will need to edit the dashboard and relink the widgets to the "
              "properties for your agent."),
        entry("Quad Plots", "selector", "quadPlotsPlugIn",
              "This Dashboard gives you four plots in a 2x2 arrangement showing today's values.\n\n"
              "Contains:\n"
              "    \u2022 Temperature\n"
              "    \u2022 Humidity\n"
              "    \u2022 Wind Speed\n"
              "    \u2022 Dew Point"),
        entry("Clean Slate", "selector", "cleanSlatePlugIn",
              "This Dashboard starts in edit mode and contains a single text field.\n\n"
              "Use this as a starting point for your own custom dashboard."),
    };
}

}  // namespace

std::shared_ptr<const Value::Array> ZORDashboardToolbarPlugIn::dashboardsArray() {
    // Process-wide storage behind each object's own lock: all callers run on the main thread.
    static std::shared_ptr<const Value::Array> catalogue;
    const std::lock_guard lock(monitor_);
    if (!catalogue) catalogue = std::make_shared<const Value::Array>(makeCatalogue());
    return catalogue;
}

std::shared_ptr<ZORDashboardPlugIn> ZORDashboardToolbarPlugIn::dashboardForRow(std::size_t row) {
    const auto catalogue = dashboardsArray();
    if (row >= catalogue->size()) return {};
    const Value& chosen = (*catalogue)[row];
    if (chosen["selector"].isString()) return perform(chosen["selector"].asString()).as<ZORDashboardPlugIn>();
    if (chosen["filename"].isString()) return dashboardFromResource(chosen["filename"].asString());
    return {};
}

std::shared_ptr<ZORDashboardPlugIn> ZORDashboardToolbarPlugIn::dashboardFromResource(const std::string& filename) {
    const auto resources = bundle();
    if (!resources) return {};
    const auto agentName = ask(agent(), [](const Agent& station) { return station.name(); });
    auto path = resources->pathForResource(filename + "-" + agentName, "zordashboard");
    if (!path) path = resources->pathForResource(filename, "zordashboard");
    if (!path) return {};
    const auto data = readFile(*path);
    if (!data) return {};
    const Value root = KeyedUnarchiver::unarchivedRoot(*data).valueOr({});

    const auto canvas = root["editView"].as<ZORDashboardEditView>();
    auto dashboard = dashboardWithCanvas(canvas, root["title"].string());
    if (canvas) ask(agent(), [&](Agent& station) { station.linkPropertiesToWidgets(canvas->subviews()); });
    return dashboard;
}

std::shared_ptr<ZORDashboardPlugIn> ZORDashboardToolbarPlugIn::dashboardWithCanvas(
    std::shared_ptr<ZORDashboardEditView> canvas, std::optional<std::string> title) {
    auto dashboard = ZORDashboardPlugIn::initWithAgent(agent(), siteWindowController());
    if (!dashboard) return {};
    dashboard->setEditView(std::move(canvas));
    dashboard->setTitle(std::move(title));
    dashboard->view();
    return dashboard;
}

}  // namespace zor
