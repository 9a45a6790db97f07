#include "app/drive/DriveSession.h"

#include "host/foundation/Log.h"
#include "host/foundation/MainQueue.h"

namespace zor {

DriveSession::DriveSession(const PlugInLibrary& plugIns, DriveToolkit& toolkit) : plugIns_(plugIns), toolkit_(toolkit) {
    setLogSink([this](std::string_view line) { log_.emplace_back(line); });
}

DriveSession::~DriveSession() {
    if (document_) document_->close();
    setLogSink({});
}

const std::map<std::string, DriveSession::Handler, std::less<>>& DriveSession::handlers() {
    using S = DriveSession;
    static const std::map<std::string, Handler, std::less<>> all{
        {"new", &S::newDocument},   {"catalogue", &S::catalogue},   {"dashboards", &S::dashboards},
        {"detach", &S::detach},     {"remove", &S::remove},         {"toolbar", &S::performOnToolbar},
        {"row", &S::clickRow},      {"web", &S::web},               {"advertise", &S::advertise},
        {"select", &S::select},     {"roundtrip", &S::roundtrip},   {"save", &S::save},
        {"open", &S::open},         {"png", &S::writePng},          {"pdf", &S::writePdf},
        {"press", &S::press},       {"drag", &S::drag},             {"release", &S::release},
        {"rightPress", &S::rightPress}, {"choose", &S::choose},     {"key", &S::key},
        {"action", &S::action},     {"command", &S::command},       {"pasteboard", &S::pasteboard},
        {"pointer", &S::pointer},   {"answer", &S::queueAnswer},    {"query", &S::query},
        {"drawing", &S::drawing},   {"state", &S::state},           {"set", &S::set},
    };
    return all;
}

std::string DriveSession::answer(const std::string& line) {
    Json result;
    try {
        const Json parsed = jsonFromLine(line);
        if (!parsed.is_object()) throw LineError{"line", "is not a JSON object"};
        result = carryOut(parsed);
    } catch (const LineError& error) {
        toolkit_.takeMenu();
        toolkit_.takeSheets();
        log_.clear();
        result = {{"error", error.key + ": " + error.fault}};
    }
    return lineOf(result);
}

Json DriveSession::carryOut(const Json& line) {
    const Fields fields(line);
    const std::string name = fields.string("do");
    const auto handler = handlers().find(name);
    if (handler == handlers().end()) fields.refuse("do", "there is no line \"" + name + "\"");
    const auto before = dashboard();
    const Json extra = (this->*handler->second)(fields);
    toolkit_.endSheets();
    MainQueue::shared().run();
    if (dashboard() != before) showSelected();
    lookOverCanvas();

    Json result{{"ok", true}, {"menu", toolkit_.takeMenu()}, {"sheets", toolkit_.takeSheets()}, {"log", log_}};
    log_.clear();
    result.update(extra);
    return result;
}

std::shared_ptr<ZORPlugIn> DriveSession::dashboard() const {
    return document_ ? document_->siteWindowController()->selectedPlugIn() : nullptr;
}

std::shared_ptr<ZORPlugIn> DriveSession::dashboardFor(const Fields& line) const {
    auto current = dashboard();
    if (!current) line.refuse("do", "there is no current dashboard");
    return current;
}

std::shared_ptr<ZORImageView> DriveSession::canvasOf(const std::shared_ptr<ZORPlugIn>& plugIn) const {
    return ask(plugIn, [](const ZORPlugIn& owner) { return owner.valueForKey("editView").as<ZORImageView>(); });
}

std::shared_ptr<ZORImageView> DriveSession::canvasFor(const Fields& line) const {
    auto canvas = canvasOf(dashboardFor(line));
    if (!canvas) line.refuse("do", "the current dashboard has no canvas");
    return canvas;
}

std::shared_ptr<ZORPlugIn> DriveSession::toolbar() const {
    return document_ && !document_->entryPlugIns().empty() ? document_->entryPlugIns().front() : nullptr;
}

Window* DriveSession::window() const {
    if (!document_) return nullptr;
    const auto shown = dashboard();
    const auto around = shown ? shown->view()->window() : nullptr;
    return around ? around : document_->siteWindowController()->window().get();
}

void DriveSession::lookOverCanvas() {
    const auto canvas = canvasOf(dashboard());
    if (!canvas) return;
    for (const auto& child : canvas->subviews()) {
        const auto& widget = static_cast<const ZORWidgetHostView&>(*child);
        const auto [entry, isNew] = idsByHash_.try_emplace(widget.hash(), lastId_ + 1);
        if (!isNew) continue;
        lastId_ = entry->second;
        widgetsById_[lastId_] = std::static_pointer_cast<ZORWidgetHostView>(child);
    }
}

void DriveSession::forgetGoneWidgets() {
    std::erase_if(widgetsById_, [](const auto& each) { return each.second.expired(); });
    std::erase_if(idsByHash_, [this](const auto& each) { return !widgetsById_.contains(each.second); });
}

Json DriveSession::idOf(const ZORWidgetHostView& widget) const {
    const auto found = idsByHash_.find(widget.hash());
    if (found != idsByHash_.end()) return found->second;
    return widget.kind() == "container" ? Json("container") : Json();
}

}  // namespace zor
