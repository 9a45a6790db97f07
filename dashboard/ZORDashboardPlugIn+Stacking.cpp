#include "dashboard/ZORDashboardPlugIn.h"

namespace zor {

int compareViews(const View& a, const View& b) {
    const auto first = static_cast<const ZORWidgetHostView&>(a).zOrder();
    const auto second = static_cast<const ZORWidgetHostView&>(b).zOrder();
    return first < second ? -1 : first > second ? 1 : 0;
}

void ZORDashboardPlugIn::bringToFront(const ObjectPtr&) {
    if (!editView_) return;
    std::int64_t top = ask(topmostWidget(), [](const auto& widget) { return widget.zOrder(); });
    for (const auto& widget : selectedObjects_) widget->setZOrder(++top);
    editView_->sortSubviews(compareViews);
}

void ZORDashboardPlugIn::sendToBack(const ObjectPtr&) {
    if (!editView_) return;
    std::int64_t bottom = ask(lowestWidget(), [](const auto& widget) { return widget.zOrder(); });
    for (const auto& widget : selectedObjects_) widget->setZOrder(--bottom);
    editView_->sortSubviews(compareViews);
}

const ZORWidgetHostView* ZORDashboardPlugIn::lowestWidget() const {
    const auto widgets = editView_->widgets();
    return widgets.empty() ? nullptr : &widgets.front();
}

const ZORWidgetHostView* ZORDashboardPlugIn::topmostWidget() const {
    const auto widgets = editView_->widgets();
    return widgets.empty() ? nullptr : &widgets.back();
}

}  // namespace zor
