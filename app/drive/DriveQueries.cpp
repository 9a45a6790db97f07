#include <array>
#include <algorithm>

#include "app/drive/DriveSession.h"
#include "host/station/ZORHelpManager.h"
#include "host/views/RecordingContext.h"

namespace zor {

namespace {

constexpr std::array<std::string_view, 13> plugInNames{
    "name", "textDescription", "htmlDescription", "xmlDescription", "jsonDescription", "group",       "isRenamable",
    "isDeletable", "lastUsedTitle", "icon",       "menu",           "toolbarItem",     "showHelp"};
constexpr std::array<std::string_view, 6> canvasNames{
    "description", "isFlipped", "acceptsFirstResponder", "showPositionProperties", "minWidth", "minHeight"};

Json sizeOf(const std::shared_ptr<Image>& image) {
    if (!image) return {};
    return Json::array({jsonFrom(image->size().width), jsonFrom(image->size().height)});
}

Json askPlugIn(ZORPlugIn& plugIn, const std::string& name) {
    if (name == "icon") return sizeOf(plugIn.icon());
    if (name == "menu") {
        const auto menu = plugIn.menu();
        return menu ? jsonFrom(*menu) : Json();
    }
    if (name == "toolbarItem") {
        const auto item = plugIn.toolbarItem();
        if (!item) return {};
        return {{"identifier", item->itemIdentifier()},
                {"label", item->label()},
                {"action", item->action()},
                {"image", sizeOf(item->image())}};
    }
    if (name == "showHelp") {
        plugIn.showHelp();
        return ZORHelpManager::sharedHelpManager().lastAnchor();
    }
    return jsonFrom(plugIn.valueForKey(name));
}

Json jsonFromOperation(const DrawingOperation& operation) {
    Json segments = Json::array();
    for (const auto& [x1, y1, x2, y2] : operation.segments()) {
        segments.push_back(Json::array({jsonFrom(x1), jsonFrom(y1), jsonFrom(x2), jsonFrom(y2)}));
    }
    Json dash = Json::array();
    for (const double length : operation.stroke.dash) dash.push_back(jsonFrom(length));
    return {{"op", operation.op},
            {"segments", std::move(segments)},
            {"dash", std::move(dash)},
            {"phase", jsonFrom(operation.stroke.dashPhase)},
            {"color", operation.stroke.color.text()}};
}

}  // namespace

Json DriveSession::query(const Fields& line) {
    const std::string target = line.string("target");
    const std::string name = line.string("name");
    if (target == "canvas") {
        if (std::ranges::find(canvasNames, name) == canvasNames.end()) {
            line.refuse("name", "a canvas cannot be asked for \"" + name + "\"");
        }
        return {{"result", jsonFrom(canvasFor(line)->valueForKey(name))}};
    }
    if (target != "dashboard" && target != "toolbar") line.refuse("target", "must be dashboard, toolbar or canvas");
    const auto plugIn = target == "toolbar" ? toolbar() : dashboardFor(line);
    if (!plugIn) line.refuse("target", "there is no document with a toolbar plug-in");
    const bool known = std::ranges::find(plugInNames, name) != plugInNames.end();
    const bool isOwn = name != "lastUsedTitle" || plugIn->classRecord().property(name);
    if (!known || !isOwn) line.refuse("name", "a " + target + " cannot be asked for \"" + name + "\"");
    return {{"result", askPlugIn(*plugIn, name)}};
}

Json DriveSession::drawing(const Fields& line) {
    const auto canvas = canvasFor(line);
    // What the base class draws comes first and is left out.
    RecordingContext baseClass;
    canvas->ZORImageView::drawRect(baseClass, canvas->bounds());
    RecordingContext context;
    canvas->drawRect(context, canvas->bounds());
    Json operations = Json::array();
    for (std::size_t index = baseClass.operations().size(); index < context.operations().size(); ++index) {
        operations.push_back(jsonFromOperation(context.operations()[index]));
    }
    return {{"drawing", std::move(operations)}};
}

}  // namespace zor
