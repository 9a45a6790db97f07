#include <algorithm>

#include "dashboard/FrameSnapshot.h"
#include "dashboard/ZORDashboardPlugIn.h"

namespace zor {

void ZORDashboardPlugIn::mouseDragged(const EventPtr& event) {
    if (!editView_ || !editView_->editMode()) {
        didDrag_ = false;
        return;
    }
    if (lastMouseClickWasRight_) return;
    if (!didDrag_) beginDrag();
    ZORPlugIn::mouseDragged(event);
    currentDraggedPoint_ = canvasPoint(event);
    setCoordinateText(currentDraggedPoint_);
    if (drawSelectionBox_) {
        updateRubberBand(event->hasFlag(shiftKeyMask));
    } else {
        moveSelection();
    }
}

void ZORDashboardPlugIn::beginDrag() {
    for (const auto& widget : selectedObjects_) selectedObjectFrames_.push_back(frameSnapshot(*widget));
    didDrag_ = true;
    unselectObject(container());
    if (drawSelectionBox_) hidePropertyPanel();
}

void ZORDashboardPlugIn::moveSelection() {
    // A widget that is resized by its own handle stays where it is, and the others with it.
    if (std::ranges::any_of(selectedObjects_, [](const auto& widget) { return widget->inLiveResize(); })) return;
    for (const auto& widget : selectedObjects_) {
        const Point offset = widget->mouseDownRelativeOffset();
        widget->setFrameXCoordinate(currentDraggedPoint_.x - offset.x);
        widget->setFrameYCoordinate(currentDraggedPoint_.y - offset.y);
        widget->setAllowResize(false);
        widget->setNeedsDisplay(true);
    }
}

}  // namespace zor
