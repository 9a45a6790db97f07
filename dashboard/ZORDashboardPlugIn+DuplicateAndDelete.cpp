#include "dashboard/ZORDashboardPlugIn.h"
#include "host/views/Window.h"

namespace zor {

Rect frameOfCopy(const Rect& frame) { return offsetRect(frame, 10, -10); }

void ZORDashboardPlugIn::duplicateObject(const ObjectPtr&) {
    if (!editView_) return;
    WidgetList copies;
    const WidgetList sources = selectedObjects_;
    for (const auto& source : sources) {
        auto copy = std::static_pointer_cast<ZORWidgetHostView>(source->copy());
        copy->setFrame(frameOfCopy(copy->frame()));
        copies.push_back(std::move(copy));
    }
    unselectObjects(sources);
    addAndSelect(copies);
}

void ZORDashboardPlugIn::addAndSelect(const WidgetList& widgets) {
    editView_->addSubviews(widgets);
    selectObjects(widgets);
    undoManager_->registerUndoWithTarget(shared_from_this(), [widgets](Object&) {
        for (const auto& widget : widgets) widget->removeFromSuperview();
    });
}

void ZORDashboardPlugIn::deleteObject(const ObjectPtr&) {
    if (!editView_) return;
    auto groups = std::make_shared<std::vector<WidgetList>>();
    undoManager_->registerUndoWithTarget(shared_from_this(), [groups](Object& target) {
        const auto canvas = static_cast<ZORDashboardPlugIn&>(target).editView();
        if (groups->empty() || !canvas) return;
        canvas->addSubviews(groups->back());
    });
    WidgetList group;
    for (const auto& widget : selectedObjects_) {
        const auto target = widget->targetView();
        if (target && target->isKindOf(ZORDashboardEditView::staticClass())) continue;
        widget->setSelected(false);
        group.push_back(widget);
        widget->removeFromSuperview();
    }
    if (auto* window = editView_->window()) window->makeFirstResponder(editView_);
    groups->push_back(std::move(group));
    selectedObjects_.clear();
    hidePropertyPanel();
}

}  // namespace zor
