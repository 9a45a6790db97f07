#include "dashboard/ZORDashboardPlugIn.h"

namespace zor {

void ZORDashboardPlugIn::awakeFromNib() {
    registerForNotification();
    auto scrollView = std::make_shared<ScrollView>(Rect{0, 0, 500, 500});
    scrollView->setHasBorder(false);
    scrollView->setHasVerticalRuler(true);
    view()->addSubview(scrollView);
    setupLayoutConstraints(view(), scrollView);

    // A stored selection may hold the container that the canvas had; it is this one again then.
    auto canvasWidget = container();
    if (!canvasWidget) canvasWidget = std::make_shared<ZORWidgetHostView>();
    canvasWidget->setTargetView(editView_);
    canvasWidget->setFrame(editView_ ? editView_->frame() : Rect{});
    scrollView->setDocumentView(canvasWidget);

    // Widgets that are already there move to the top one by one, which leaves them in the order of the list.
    if (widgets_ && editView_) editView_->addSubviews(*widgets_);
}

void ZORDashboardPlugIn::setupLayoutConstraints(const std::shared_ptr<View>& hostView,
                                                const std::shared_ptr<View>& targetView) {
    using enum LayoutAttribute;
    hostView->deactivateConstraints();
    targetView->setTranslatesAutoresizingMaskIntoConstraints(false);
    std::vector<LayoutConstraint> constraints;
    for (const auto attribute : {left, right, top, bottom, width, height}) {
        constraints.push_back({.target = targetView, .attribute = attribute, .multiplier = 1.0, .constant = 0});
    }
    hostView->addConstraints(std::move(constraints));
}

std::shared_ptr<ZORDashboardEditView> ZORDashboardPlugIn::dashboardEditViewFromView(
    const std::shared_ptr<View>& view) {
    std::shared_ptr<ZORDashboardEditView> found;
    if (!view) return found;
    for (const auto& child : view->subviews()) {
        if (auto canvas = std::dynamic_pointer_cast<ZORDashboardEditView>(child)) return canvas;
        if (!found) found = dashboardEditViewFromView(child);
    }
    return found;
}

std::shared_ptr<View> ZORDashboardPlugIn::canvasContainer() const {
    auto* container = editView_ ? editView_->superview() : nullptr;
    return container ? std::static_pointer_cast<View>(container->shared_from_this()) : nullptr;
}

void ZORDashboardPlugIn::setEditView(std::shared_ptr<ZORDashboardEditView> canvas) {
    auto container = std::dynamic_pointer_cast<ZORWidgetHostView>(canvasContainer());
    editView_ = std::move(canvas);
    if (!container) return;
    container->setTargetView(editView_);
    container->setFrame(editView_ ? editView_->frame() : Rect{});
}

}  // namespace zor
