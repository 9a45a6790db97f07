#include "dashboard/ZORDashboardPlugIn.h"

namespace zor {

template <typename Factory>
void ZORDashboardPlugIn::insertWidget(Size size, Factory&& factory) {
    if (!editView_) return;
    constexpr double offset = 20;
    Rect rect{clickOffset_.x - offset, clickOffset_.y - offset, size.width, size.height};
    if (!containsRect(editView_->frame(), rect)) rect = {0, 0, size.width, size.height};
    std::shared_ptr<ZORWidgetHostView> widget = factory(rect);
    editView_->addSubview(widget);
    widget->setEditable(editView_->editMode());
    undoManager_->registerUndoWithTarget(shared_from_this(), [widget](Object&) { widget->removeFromSuperview(); });
}

void ZORDashboardPlugIn::addTextLabel(const ObjectPtr&) {
    insertWidget({256, 40}, ZORWidgetHostView::textFieldWithRect);
}
void ZORDashboardPlugIn::addDateTimeLabel(const ObjectPtr&) {
    insertWidget({256, 40}, ZORWidgetHostView::dateTimeFieldWithRect);
}
void ZORDashboardPlugIn::addBox(const ObjectPtr&) { insertWidget({256, 256}, ZORWidgetHostView::boxWithRect); }
void ZORDashboardPlugIn::addImage(const ObjectPtr&) { insertWidget({256, 256}, ZORWidgetHostView::imageViewWithRect); }
void ZORDashboardPlugIn::addLED(const ObjectPtr&) { insertWidget({40, 40}, ZORWidgetHostView::ledWithRect); }
void ZORDashboardPlugIn::addMapView(const ObjectPtr&) { insertWidget({240, 240}, ZORWidgetHostView::mapViewWithRect); }
void ZORDashboardPlugIn::addWebView(const ObjectPtr&) { insertWidget({240, 240}, ZORWidgetHostView::webViewWithRect); }
void ZORDashboardPlugIn::addPlot(const ObjectPtr&) {
    insertWidget({480, 360}, [this](const Rect& rect) { return ZORWidgetHostView::plotViewWithRect(rect, agent()); });
}
void ZORDashboardPlugIn::addLevelIndicator(const ObjectPtr&) {
    insertWidget({180, 34}, ZORWidgetHostView::levelIndicatorWithRect);
}
void ZORDashboardPlugIn::addRoundGauge(const ObjectPtr&) {
    insertWidget({240, 240}, ZORWidgetHostView::roundGaugeWithRect);
}
void ZORDashboardPlugIn::addLinearGauge(const ObjectPtr&) {
    insertWidget({112, 512}, ZORWidgetHostView::linearGaugeWithRect);
}

}  // namespace zor
