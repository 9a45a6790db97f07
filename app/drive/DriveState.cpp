#include "app/drive/DriveSession.h"
#include "host/station/ZORPropertyPanelController.h"
#include "host/views/Controls.h"
#include "host/views/ShapeLayer.h"

namespace zor {

namespace {

Json textOrNull(const std::optional<std::string>& text) { return text ? Json(*text) : Json(); }

Json instrumentState(const ZORInstrumentView& instrument) {
    Json state = Json::object();
    if (const auto text = instrument.text()) state["text"] = *text;
    const auto* record = &instrument.classRecord();
    if (record->property("font")) {
        const Value font = instrument.valueForKey("font");
        state["fontFamily"] = jsonFrom(font["family"]);
        state["fontSize"] = jsonFrom(font["size"]);
        state["bold"] = jsonFrom(font["bold"]);
    }
    for (const char* name : {"fontSize", "alignment", "useProperty", "propertyFormat", "period"}) {
        if (record->property(name)) state[name] = jsonFrom(instrument.valueForKey(name));
    }
    if (record->property("agent")) {
        const auto agent = instrument.valueForKey("agent").as<Agent>();
        state["agent"] = agent ? Json(agent->name()) : Json();
    }
    return state;
}

Json canvasState(const ZORImageView& canvas) {
    const auto image = canvas.image();
    return {{"frame", jsonFrom(canvas.frame())},
            {"editMode", jsonFrom(canvas.valueForKey("editMode"))},
            {"drawGridLines", jsonFrom(canvas.valueForKey("drawGridLines"))},
            {"step", jsonFrom(canvas.valueForKey("step"))},
            {"image", image ? Json::array({jsonFrom(image->size().width), jsonFrom(image->size().height)}) : Json()}};
}

Json containerState(const ZORImageView& canvas) {
    const auto* container = dynamic_cast<const ZORWidgetHostView*>(canvas.superview());
    if (!container) return {};
    return {{"frame", jsonFrom(container->frame())}, {"selected", container->selected()}};
}

Json undoState(const ObjectPtr& manager) {
    if (!manager) return {};
    Json state = Json::object();
    for (const char* name : {"depth", "canUndo", "canRedo"}) state[name] = jsonFrom(manager->valueForKey(name));
    return state;
}

Json fieldsState(const Object& dashboard) {
    Json state{{"clickOffset", Json::array({jsonFrom(dashboard.valueForKey("clickOffsetX")),
                                            jsonFrom(dashboard.valueForKey("clickOffsetY"))})}};
    for (const char* name :
         {"mouseDownPoint", "currentDraggedPoint", "didDrag", "drawSelectionBox", "lastMouseClickWasRight"}) {
        state[name] = jsonFrom(dashboard.valueForKey(name));
    }
    state["selectedObjectFrames"] = dashboard.valueForKey("selectedObjectFrames").asArray().size();
    return state;
}

Json labelState(const std::shared_ptr<TextField>& label) {
    if (!label) return {};
    return {{"hidden", label->isHidden()}, {"text", label->stringValue()}, {"frame", jsonFrom(label->frame())}};
}

Json bandState(const std::shared_ptr<ShapeLayer>& layer) {
    if (!layer) return {};
    Json path;
    if (layer->path()) {
        path = Json::array();
        for (const auto& point : layer->pathPoints()) path.push_back(jsonFrom(point));
    }
    return {{"path", std::move(path)},
            {"lineWidth", jsonFrom(layer->lineWidth())},
            {"dash", layer->lineDashPattern()},
            {"stroke", layer->strokeColor().text()},
            {"fill", layer->fillColor().text()},
            {"animation", jsonFrom(layer->valueForKey("animation"))}};
}

Json viewTree(const View& view) {
    Json children = Json::array();
    for (const auto& child : view.subviews()) children.push_back(viewTree(*child));
    return Json::array({view.classRecord().name(), std::move(children)});
}

}  // namespace

Json DriveSession::widgetState(const ZORWidgetHostView& widget) const {
    const auto client = std::dynamic_pointer_cast<PropertyClient>(widget.targetView());
    const auto instrument = widget.instrument();
    return {{"id", idOf(widget)},
            {"kind", widget.kind()},
            {"frame", jsonFrom(widget.frame())},
            {"zOrder", widget.zOrder()},
            {"selected", widget.selected()},
            {"allowResize", widget.allowResize()},
            {"editable", widget.editable()},
            {"inLiveResize", widget.inLiveResize()},
            {"title", textOrNull(widget.title())},
            {"property", client ? textOrNull(client->propertyName()) : Json()},
            {"instrument", instrument ? instrumentState(*instrument) : Json::object()}};
}

Json DriveSession::panelState(const ObjectPtr& current) const {
    const auto panel = current->valueForKey("propertyPanelController").as<ZORPropertyPanelController>();
    if (!panel) return {};
    const auto target = std::dynamic_pointer_cast<View>(panel->targetObject());
    Json targetId;
    if (const auto* widget = target ? dynamic_cast<const ZORWidgetHostView*>(target->superview()) : nullptr) {
        targetId = widget->kind() == "container" ? Json("canvas") : idOf(*widget);
    }
    const auto& window = panel->window();
    return {{"visible", window->isVisible()},
            {"target", std::move(targetId)},
            {"title", window->title()},
            {"frame", jsonFrom(window->frame())}};
}

Json DriveSession::state(const Fields&) {
    lookOverCanvas();
    const auto current = dashboard();
    const auto canvas = canvasOf(current);
    Json result;
    for (const char* name : {"dashboard", "canvas", "container", "widgets", "selection", "undo", "fields", "label",
                             "band", "panel", "firstResponder", "selectionWindow", "viewTree"}) {
        result[name] = nullptr;
    }
    result["selectionWindow"] = selectionWindowState();
    if (!current) return result;

    result["dashboard"] = {{"title", textOrNull(current->title())}, {"uniqueIdentifier", current->uniqueIdentifier()}};
    if (canvas) {
        result["canvas"] = canvasState(*canvas);
        result["container"] = containerState(*canvas);
        result["widgets"] = Json::array();
        for (const auto& child : canvas->subviews()) {
            result["widgets"].push_back(widgetState(static_cast<const ZORWidgetHostView&>(*child)));
        }
    }
    const Value selection = current->valueForKey("selectedObjects");
    result["selection"] = Json::array();
    for (const auto& entry : selection.asArray()) {
        result["selection"].push_back(idOf(*entry.as<ZORWidgetHostView>()));
    }
    result["undo"] = undoState(current->valueForKey("undoManager").asObject());
    result["fields"] = fieldsState(*current);
    result["label"] = labelState(current->valueForKey("mouseCoordinateView").as<TextField>());
    result["band"] = bandState(current->valueForKey("shapeLayer").as<ShapeLayer>());
    result["panel"] = panelState(current);
    const auto* responder = window()->firstResponder();
    result["firstResponder"] = responder == current.get()  ? "dashboard"
                               : responder == canvas.get() ? "canvas"
                                                           : "other";
    result["viewTree"] = viewTree(*current->view());
    return result;
}

}  // namespace zor
