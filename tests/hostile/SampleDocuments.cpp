#include "tests/hostile/SampleDocuments.h"

#include <array>
#include <initializer_list>

#include "host/foundation/KeyedArchiver.h"
#include "host/foundation/SafeFile.h"
#include "host/station/SiteDocument.h"
#include "tests/dashboard/PlugInBundle.h"
#include "toolbar/ZORDashboardPreviewView.h"

namespace zor::test {

namespace {

using WidgetPtr = std::shared_ptr<ZORWidgetHostView>;

constexpr std::array<std::string_view, 11> kinds{
    "textField", "dateTimeField",  "box",        "imageView",  "led", "mapView", "webView",
    "plotView",  "levelIndicator", "roundGauge", "linearGauge"};

std::shared_ptr<Agent> garden() {
    auto agent = Agent::withName("Garden");
    agent->addProperty("outdoorTemperature", "Outdoor Temperature", Quantity::temperature);
    agent->addProperty("windSpeed", "Wind Speed", Quantity::speed);
    return agent;
}

WidgetPtr widgetOf(std::string_view kind, const std::shared_ptr<Agent>& agent) {
    auto widget = ZORWidgetHostView::widgetOfKind(kind, {10, 20.5, 120, 60}, agent);
    const auto& target = widget->instrument();
    target->setValueForKey("thresholds", Value::Array{Value::Dictionary{{"value", 30.0}, {"color", "#ff3b30ff"}}});
    target->setValueForKey("image",
                           Image::withData(std::make_shared<const Bytes>(FakeToolkit::imageData({4, 3})), {4, 3}));
    target->setValueForKey("url", "https://example.org/");
    if (const auto client = std::dynamic_pointer_cast<PropertyClient>(widget->targetView())) {
        client->setProperty(agent->properties().find("outdoorTemperature"));
    }
    return widget;
}

WidgetList widgetsOf(std::initializer_list<std::string_view> names, const std::shared_ptr<Agent>& agent) {
    WidgetList widgets;
    for (const auto name : names) widgets.push_back(widgetOf(name, agent));
    return widgets;
}

/// A document of the given station whose dashboards hold these widgets.
std::shared_ptr<SiteDocument> siteWith(const std::shared_ptr<Agent>& agent, const std::vector<WidgetList>& dashboards) {
    const auto document = SiteDocument::create(agent, {plugInBundle().bundle()});
    const auto& controller = document->siteWindowController();
    for (const auto& widgets : dashboards) {
        const auto dashboard = ZORDashboardPlugIn::initWithAgent(agent, controller, widgets, {400, 300});
        dashboard->setTitle("Panel");
        controller->addPlugIn(dashboard, true);
    }
    return document;
}

std::shared_ptr<ZORDashboardPlugIn> lastDashboard(const SiteDocument& document) {
    return std::static_pointer_cast<ZORDashboardPlugIn>(document.siteWindowController()->plugIns().back());
}

SampleDocument closed(std::string name, const std::shared_ptr<SiteDocument>& document) {
    auto data = document->archive();
    document->close();
    return {std::move(name), DocumentKind::site, data ? std::move(*data) : Bytes{}};
}

std::vector<SampleDocument> siteDocuments() {
    std::vector<SampleDocument> all;
    all.push_back(closed("new", siteWith(Agent::withName("A"), {})));
    all.push_back(closed("properties", siteWith(garden(), {})));

    const auto weewx = Agent::withName("Weewx");
    weewx->setConfiguration(
        {"weewx", {{"file", "weewx.sdb"}, {"pollSeconds", 2.5}, {"valueLifetime", 60}}, UnitSystem::us});
    all.push_back(closed("settings", siteWith(weewx, {})));

    const auto agent = garden();
    all.push_back(closed("two dashboards", siteWith(agent, {{}, widgetsOf({"box"}, agent)})));

    const auto edited = siteWith(agent, {widgetsOf({"textField", "led"}, agent)});
    lastDashboard(*edited)->editDashboard({});
    lastDashboard(*edited)->selectAllObjects();
    all.push_back(closed("edited", edited));

    const auto untitled = siteWith(agent, {{}});
    lastDashboard(*untitled)->setTitle({});
    lastDashboard(*untitled)->editView()->setImage(Image::plain({20, 10}));
    untitled->siteWindowController()->selectPlugInAtIndex(-1);
    all.push_back(closed("untitled", untitled));

    const auto gauges = widgetsOf({"roundGauge", "linearGauge", "plotView"}, agent);
    for (const auto& widget : gauges) widget->setTitle("Überschrift 🌦");
    all.push_back(closed("gauges", siteWith(agent, {gauges})));
    return all;
}

SampleDocument exportOf(std::string_view kind) {
    auto& toolkit = FakeToolkit::install();
    const TemporaryFolder folder;
    const std::string file = folder / "out.zordashboard";
    const auto agent = garden();
    const auto document = siteWith(agent, {widgetsOf({kind}, agent)});
    toolkit.saveAnswers.push_back({PanelResponse::ok, file});
    lastDashboard(*document)->exportDashboard({});
    document->close();
    return {std::string(kind), DocumentKind::exported, readFile(file).valueOr({})};
}

SampleDocument pasteboardOf(std::string name, std::initializer_list<std::string_view> widgets) {
    const auto& toolkit = FakeToolkit::install();
    const auto agent = garden();
    const auto document = siteWith(agent, {widgetsOf(widgets, agent)});
    const auto dashboard = lastDashboard(*document);
    dashboard->selectAllObjects();
    dashboard->copySelection({});
    document->close();
    return {std::move(name), DocumentKind::pasteboard, toolkit.pasteboard.dataForType(widgetPasteType)};
}

}  // namespace

PlugInBundle& plugInBundle() {
    static PlugInBundle bundle;
    return bundle;
}

void loadPlugIn() {
    FakeToolkit::install();
    plugInBundle().registerClasses([] {
        ZORDashboardEditView::staticClass();
        ZORDashboardPlugIn::staticClass();
        ZORDashboardToolbarPlugIn::staticClass();
        ZORDashboardPreviewView::staticClass();
    });
}

const std::vector<SampleDocument>& sampleDocuments() {
    static const std::vector<SampleDocument> documents = [] {
        auto all = siteDocuments();
        for (const auto kind : kinds) all.push_back(exportOf(kind));
        all.push_back(pasteboardOf("one widget", {"textField"}));
        all.push_back(pasteboardOf("three widgets", {"imageView", "levelIndicator", "dateTimeField"}));
        return all;
    }();
    return documents;
}

}  // namespace zor::test
