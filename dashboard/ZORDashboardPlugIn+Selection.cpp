#include <algorithm>

#include "dashboard/ZORDashboardPlugIn.h"
#include "host/foundation/AddressSet.h"

namespace zor {

void ZORDashboardPlugIn::selectObject(const std::shared_ptr<ZORWidgetHostView>& widget) {
    if (!widget) return;
    widget->setSelected(true);
    if (!isListed(*widget)) selectedObjects_.push_back(widget);
}

void ZORDashboardPlugIn::unselectObject(const std::shared_ptr<ZORWidgetHostView>& widget) {
    if (!widget) return;
    widget->setSelected(false);
    std::erase(selectedObjects_, widget);
}

void ZORDashboardPlugIn::unselectAllObjects() {
    for (const auto& widget : selectedObjects_) {
        widget->setSelected(false);
        widget->setAllowResize(false);
    }
    selectedObjects_.clear();
}

void ZORDashboardPlugIn::selectAllObjects() {
    if (!editView_) return;
    WidgetList all;
    for (auto& widget : editView_->widgets()) all.push_back(sharedWidget(widget));
    selectObjects(all);
}

// Asking the list for each of thousands would be quadratic, here and below.
void ZORDashboardPlugIn::selectObjects(const WidgetList& widgets) {
    if (widgets.empty()) return;
    AddressSet listed(selectedObjects_.size() + widgets.size());
    for (const auto& widget : selectedObjects_) listed.insert(widget.get());
    for (const auto& widget : widgets) {
        widget->setSelected(true);
        if (listed.insert(widget.get())) selectedObjects_.push_back(widget);
    }
}

void ZORDashboardPlugIn::unselectObjects(const WidgetList& widgets) {
    if (widgets.empty()) return;
    AddressSet leaving(widgets.size());
    for (const auto& widget : widgets) {
        widget->setSelected(false);
        leaving.insert(widget.get());
    }
    std::erase_if(selectedObjects_, [&](const auto& each) { return leaving.contains(each.get()); });
}

bool ZORDashboardPlugIn::isListed(const ZORWidgetHostView& widget) const {
    return std::ranges::any_of(selectedObjects_, [&](const auto& each) { return each.get() == &widget; });
}

std::shared_ptr<ZORWidgetHostView> ZORDashboardPlugIn::objectUnderPoint(Point point) {
    clickOffset_ = point;
    if (!editView_) return {};
    return topmostWidgetAt(point);
}

std::shared_ptr<ZORWidgetHostView> ZORDashboardPlugIn::objectUnderMouse(const EventPtr& event) {
    return objectUnderPoint(canvasPoint(event));
}

Point ZORDashboardPlugIn::canvasPoint(const EventPtr& event) const {
    return ask(editView_,
               [&](const View& canvas) { return canvas.convertPointFromView(event->locationInWindow(), nullptr); });
}

std::shared_ptr<ZORWidgetHostView> ZORDashboardPlugIn::container() const {
    return std::dynamic_pointer_cast<ZORWidgetHostView>(canvasContainer());
}

}  // namespace zor
