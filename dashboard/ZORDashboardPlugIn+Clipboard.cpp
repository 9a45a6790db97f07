#include "dashboard/ZORDashboardPlugIn.h"
#include "host/foundation/KeyedArchiver.h"
#include "host/views/Toolkit.h"

namespace zor {

void ZORDashboardPlugIn::copySelection(const ObjectPtr&) {
    auto& pasteboard = Toolkit::current().generalPasteboard();
    pasteboard.clearContents();
    auto data = KeyedArchiver::archivedDataWithRootObject(
        Value(Value::Array(selectedObjects_.begin(), selectedObjects_.end())));
    if (data) pasteboard.setDataForType(std::move(*data), widgetPasteType);
}

void ZORDashboardPlugIn::paste(const ObjectPtr&) {
    const auto& pasteboard = Toolkit::current().generalPasteboard();
    if (!editView_ || !ZORWidgetHostView::canReadFromPasteboard(pasteboard)) return;
    const auto widgets = ZORWidgetHostView::readFromPasteboard(pasteboard);
    if (!widgets) return;
    unselectAllObjects();
    for (const auto& widget : *widgets) widget->setFrame(frameOfCopy(widget->frame()));
    addAndSelect(*widgets);
}

void ZORDashboardPlugIn::undo(const ObjectPtr&) {
    if (editView_ && editView_->editMode()) undoManager_->undo();
}

void ZORDashboardPlugIn::redo(const ObjectPtr&) {
    if (editView_ && editView_->editMode()) undoManager_->redo();
}

void ZORDashboardPlugIn::selectAll(const ObjectPtr&) {
    if (editView_ && editView_->editMode()) selectAllObjects();
}

}  // namespace zor
