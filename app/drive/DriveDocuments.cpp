#include "app/SiteSession.h"
#include "app/drive/DriveSession.h"
#include "host/foundation/ClassRegistry.h"
#include "host/foundation/KeyedArchiver.h"
#include "host/foundation/SafeFile.h"
#include "host/station/PropertyKeys.h"
#include "host/views/ScrollView.h"

namespace zor {

namespace {

constexpr Size defaultViewport{1400, 1000};

/// What makes a dashboard of the document class.
const ClassRecord* documentClass(const PlugInLibrary& plugIns) {
    for (const auto& bundle : plugIns.bundles()) {
        if (const auto* record = ClassRegistry::shared().find(bundle->documentClass())) return record;
    }
    return nullptr;
}

std::shared_ptr<Agent> makeAgent(const Fields& description) {
    auto agent = Agent::withName(description.optionalString("name").value_or(""));
    if (description.has("properties")) {
        const Fields properties = description.object("properties");
        for (const auto& key : properties.keys()) {
            const Fields property = properties.object(key.c_str());
            const auto shortName = property.optionalString("unit");
            const Unit* unit = shortName ? unitWithShortName(*shortName) : &baseUnit(Quantity::none);
            if (!unit) property.refuse("unit", "there is no unit \"" + *shortName + "\"");
            const auto* known = knownProperty(key);
            setProperty(*agent->addProperty(key, known ? known->displayName : std::string_view(key), unit->quantity),
                        property, agent->now());
        }
    }
    return agent;
}

}  // namespace

std::shared_ptr<ZORWidgetHostView> makeWidget(const Fields& description, const std::shared_ptr<Agent>& agent) {
    const std::string kind = description.string("kind");
    auto widget = ZORWidgetHostView::widgetOfKind(kind, description.rect("frame"), agent);
    if (!widget) description.refuse("kind", "there is no kind of widget \"" + kind + "\"");
    widget->setTitle(description.optionalString("title"));
    if (const auto name = description.optionalString("property")) {
        const auto client = std::dynamic_pointer_cast<PropertyClient>(widget->targetView());
        if (!client) description.refuse("property", "a widget of kind \"" + kind + "\" shows no property");
        client->linkProperty(*name, agent->properties().find(*name));
    }
    return widget;
}

Json DriveSession::newDocument(const Fields& line) {
    // Everything is read and made before anything is replaced.
    static const Json nothing = Json::object();
    const auto agent = makeAgent(line.has("agent") ? line.object("agent") : Fields(nothing));
    Value::Array widgets;
    if (line.has("widgets")) {
        for (const auto& each : line.objects("widgets")) widgets.push_back(makeWidget(each, agent));
    }
    const Size size = line.has("size") ? line.size("size") : Size{};
    const Point viewOrigin = line.has("viewOrigin") ? line.point("viewOrigin") : Point{};
    const Size viewport = line.has("window") ? line.size("window") : defaultViewport;
    if (line.has("agent") && line.object("agent").has("dashboardWidgets")) {
        const Fields description = line.object("agent");
        for (const auto& each : description.objects("dashboardWidgets")) makeWidget(each, agent);
        agent->setDashboardWidgetsMaker([kept = description.raw("dashboardWidgets")](Agent& owner) {
            std::vector<std::shared_ptr<View>> made;
            for (const auto& each : kept)
                made.push_back(makeWidget(Fields(each), std::static_pointer_cast<Agent>(owner.shared_from_this())));
            return made;
        });
    }
    const auto* record = documentClass(plugIns_);
    const bool wantsDashboard = line.has("widgets") || line.has("size");
    if (wantsDashboard && !record) line.refuse("do", "no plug-in that makes dashboards is installed");

    setViewport(viewOrigin, viewport);
    toolkit_.forgetMenu();
    adopt(SiteDocument::create(agent, plugIns_.bundles()));
    if (wantsDashboard) {
        const auto controller = document_->siteWindowController();
        const std::vector<Value> arguments{agent, controller, line.has("widgets") ? Value(widgets) : Value(), size};
        controller->addPlugIn(std::dynamic_pointer_cast<ZORPlugIn>(record->initializer()(arguments)), true);
    }
    showSelected();
    return Json::object();
}

Json DriveSession::catalogue(const Fields& line) {
    const auto entry = toolbarFor(line);
    const Value row = line.integer("row");
    requireRow(line, "row", row);
    const auto made = entry->perform("dashboardForRow:", {&row, 1}).as<ZORPlugIn>();
    if (made) document_->siteWindowController()->addPlugIn(made, true);
    return {{"dashboard", made != nullptr}};
}

Json DriveSession::dashboards(const Fields& line) {
    if (!document_) line.refuse("do", "there is no document");
    const auto current = dashboard();
    Json list = Json::array();
    for (const auto& each : dashboardsOf(*document_)) {
        list.push_back({{"uniqueIdentifier", each->uniqueIdentifier()},
                        {"title", each->title() ? Json(*each->title()) : Json()},
                        {"selected", each == current},
                        {"separateWindow", document_->isInSeparateWindow(*each)}});
    }
    return {{"dashboards", std::move(list)}};
}

Json DriveSession::select(const Fields& line) {
    const auto index = listIndex(line);
    document_->siteWindowController()->selectPlugInAtIndex(static_cast<std::int64_t>(index));
    showSelected();
    return Json::object();
}

Json DriveSession::detach(const Fields& line) {
    const auto index = listIndex(line);
    document_->showInSeparateWindow(dashboardsOf(*document_)[index]);
    return Json::object();
}

Json DriveSession::remove(const Fields& line) {
    const auto index = listIndex(line);
    document_->siteWindowController()->removePlugInAtIndex(index);
    return Json::object();
}

std::size_t DriveSession::listIndex(const Fields& line) const {
    if (!document_) line.refuse("do", "there is no document");
    const std::int64_t index = line.integer("index");
    if (index < 0 || std::cmp_greater_equal(index, dashboardsOf(*document_).size())) {
        line.refuse("index", "there is no dashboard with that number");
    }
    return static_cast<std::size_t>(index);
}

Json DriveSession::roundtrip(const Fields& line) {
    const auto old = dashboardFor(line);
    const auto data = KeyedArchiver::archivedDataWithRootObject(Value(old));
    if (!data) line.refuse("do", data.error().message);
    UnarchivingOptions options;
    options.context["agent"] = document_->agent();
    options.context["siteWindowController"] = document_->siteWindowController();
    const auto root = KeyedUnarchiver::unarchivedRoot(*data, options);
    if (!root) line.refuse("do", root.error().message);
    const auto replacement = root->as<ZORPlugIn>();
    if (!replacement) line.refuse("do", "the archive gave no dashboard back");
    document_->siteWindowController()->replacePlugIn(old, replacement);
    showSelected();
    return Json::object();
}

Json DriveSession::save(const Fields& line) {
    if (!document_) line.refuse("do", "there is no document");
    const auto status = document_->save(line.string("file"));
    if (!status) line.refuse("file", status.error().message);
    return Json::object();
}

Json DriveSession::open(const Fields& line) {
    auto document = SiteDocument::open(line.string("file"), plugIns_.bundles());
    if (!document) line.refuse("file", document.error().message);
    if (plugInFrame_.isEmpty()) setViewport({}, defaultViewport);
    adopt(*document);
    showSelected();
    return Json::object();
}

Json DriveSession::writePng(const Fields& line) {
    const Value scale = line.has("scale") ? line.number("scale") : 1.0;
    return writePicture(line, dashboardFor(line)->perform("pngImageWithScale:", {&scale, 1}));
}

Json DriveSession::writePdf(const Fields& line) {
    return writePicture(line, dashboardFor(line)->perform("pdfRepresentation"));
}

Json DriveSession::writePicture(const Fields& line, const Value& data) {
    const std::string file = line.string("file");
    if (!data.isData()) line.refuse("do", "the dashboard gives no picture");
    const auto status = writeFileAtomically(file, data.asData());
    if (!status) line.refuse("file", status.error().message);
    return {{"bytes", data.asData().size()}};
}

void DriveSession::adopt(std::shared_ptr<SiteDocument> document) {
    if (document_) document_->close();
    document_ = std::move(document);
    forgetGoneWidgets();
    document_->siteWindowController()->setPlugInFrame(plugInFrame_);
    // Loads the interface, so that the selection window can be asked before it is shown.
    for (const auto& entry : document_->entryPlugIns()) entry->view();
}

void DriveSession::setViewport(Point viewOrigin, Size viewport) {
    plugInFrame_ = {viewOrigin.x, viewOrigin.y, viewport.width + ScrollView::rulerThickness, viewport.height};
}

void DriveSession::showSelected() {
    rightPressedView_.reset();
    if (auto* shown = window()) shown->makeFirstResponder({});
}

}  // namespace zor
