#include "dashboard/ZORDashboardPlugIn.h"
#include "host/views/Toolkit.h"

namespace zor {

void ZORDashboardPlugIn::rightMouseDown(const EventPtr& event) {
    ZORPlugIn::rightMouseDown(event);
    lastMouseEvent_ = event;
    lastMouseClickWasRight_ = true;
    auto menu = std::make_shared<Menu>("Dashboard Context Menu");
    if (editView_ && editView_->editMode()) {
        addEditingItems(*menu, event);
    } else {
        menu->addItem("Edit Dashboard", "editDashboard:", "", shared_from_this());
        menu->addItem("Export Dashboard...", "exportDashboard:", "", shared_from_this());
    }
    Toolkit::current().popUpContextMenu(menu, event, editView_.get());
}

void ZORDashboardPlugIn::addEditingItems(Menu& menu, const EventPtr& event) {
    const auto self = shared_from_this();
    const auto order = [](const auto& widget) { return widget.zOrder(); };
    const std::int64_t minimum = ask(lowestWidget(), order);
    const std::int64_t maximum = ask(topmostWidget(), order);
    becomeFirstResponder();
    const Point point = canvasPoint(event);
    clickOffset_ = point;
    mouseDownPoint_ = point;

    if (selectedObjects_.size() > 1) {
        menu.addItem("Align Top Edges", "alignTopEdges:", "", self);
        menu.addItem("Align Left Edges", "alignLeftEdges:", "", self);
        menu.addItem("Align Bottom Edges", "alignBottomEdges:", "", self);
        menu.addItem("Align Right Edges", "alignRightEdges:", "", self);
        menu.addSeparator();
    }
    if (const auto hit = highestWidgetAt(point)) {
        selectObject(hit);
        clickOffset_ = {point.x - hit->frame().x, point.y - hit->frame().y};
        if (hit->zOrder() < maximum) menu.addItem("Bring to Front", "bringToFront:", "", self);
        if (hit->zOrder() > minimum) menu.addItem("Send to Back", "sendToBack:", "", self);
        menu.addItem("Duplicate", "duplicateObject:", "", self);
        menu.addItem("Delete", "deleteObject:", "", self);
        menu.addSeparator();
    }
    menu.addItem("Add Text Label", "addTextLabel:", "", self);
    menu.addItem("Add Box", "addBox:", "", self);
    menu.addItem("Add Image", "addImage:", "", self);
    menu.addItem("Add LED", "addLED:", "", self);
    menu.addItem("Add Map View", "addMapView:", "", self);
    menu.addItem("Add Web View", "addWebView:", "", self);
    menu.addItem("Add Plot", "addPlot:", "", self);
    menu.addItem("Add Level Indicator", "addLevelIndicator:", "", self);
    menu.addItem("Add Round Gauge", "addRoundGauge:", "", self);
    menu.addItem("Add Linear Gauge", "addLinearGauge:", "", self);
    menu.addItem("Exit Edit Mode", "exitEditMode:", "", self);
}

std::shared_ptr<ZORWidgetHostView> ZORDashboardPlugIn::highestWidgetAt(Point point) const {
    ZORWidgetHostView* hit = nullptr;
    for (auto& widget : editView_->widgets()) {
        if (pointInRect(point, widget.frame()) && (!hit || widget.zOrder() > hit->zOrder())) hit = &widget;
    }
    return hit ? sharedWidget(*hit) : nullptr;
}

std::shared_ptr<Menu> ZORDashboardPlugIn::menu() {
    auto menu = std::make_shared<Menu>("");
    // The key serves as the text: there are no translations.
    menu->addItem("Duplicate", "duplicatePlugIn:", "", shared_from_this());
    return menu;
}

}  // namespace zor
