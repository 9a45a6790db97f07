#include <algorithm>

#include "dashboard/ZORDashboardPlugIn.h"

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
    for (auto& widget : editView_->widgets()) selectObject(sharedWidget(widget));
}

bool ZORDashboardPlugIn::isListed(const ZORWidgetHostView& widget) const {
    return std::ranges::any_of(selectedObjects_, [&](const auto& each) { return each.get() == &widget; });
}

std::shared_ptr<ZORWidgetHostView> ZORDashboardPlugIn::objectUnderPoint(Point point) {
    clickOffset_ = point;
    if (!editView_) return {};
    ZORWidgetHostView* hit = nullptr;
    for (auto& widget : editView_->widgets()) {
        if (pointInRect(point, widget.frame())) hit = &widget;
    }
    return hit ? sharedWidget(*hit) : nullptr;
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
