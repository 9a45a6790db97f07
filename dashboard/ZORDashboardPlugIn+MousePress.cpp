#include <algorithm>

#include "dashboard/FrameSnapshot.h"
#include "dashboard/ZORDashboardPlugIn.h"
#include "host/views/Window.h"

namespace zor {

void ZORDashboardPlugIn::mouseDown(const EventPtr& event) {
    if (event->hasFlag(controlKeyMask)) {
        rightMouseDown(event);
        return;
    }
    ZORPlugIn::mouseDown(event);
    lastMouseEvent_ = event;
    lastMouseClickWasRight_ = false;
    if (!editView_ || !editView_->editMode()) return;

    becomeFirstResponder();
    showCoordinateLabel();
    mouseDownPoint_ = canvasPoint(event);
    clickOffset_ = relativeToPlugInView(mouseDownPoint_);
    setCoordinateText(clickOffset_);
    if (event->clickCount() == 2) {
        pressTwice();
    } else {
        pressOnce(event->hasFlag(shiftKeyMask));
    }
}

void ZORDashboardPlugIn::pressTwice() {
    if (const auto hit = topmostWidgetAt(mouseDownPoint_)) {
        if (!isListed(*hit)) {
            unselectAllObjects();
            selectObject(hit);
        }
    } else {
        selectObject(container());
    }
    showPropertyPanel();
}

void ZORDashboardPlugIn::pressOnce(bool extend) {
    for (auto& widget : editView_->widgets()) {
        widget.setMouseDownRelativeOffset(
            {clickOffset_.x - widget.frameXCoordinate(), clickOffset_.y - widget.frameYCoordinate()});
    }
    // A press on a selected widget changes nothing else, so that a selection can be dragged as a group.
    const auto isPressed = [this](const auto& widget) { return pointInRect(mouseDownPoint_, widget->frame()); };
    if (std::ranges::any_of(selectedObjects_, isPressed)) return;
    if (const auto hit = topmostWidgetAt(mouseDownPoint_)) {
        if (isListed(*hit)) return;
        if (!extend) unselectAllObjects();
        selectObject(hit);
        const bool panelIsOpen = propertyPanelController_ && propertyPanelController_->window()->isVisible();
        if (panelIsOpen && selectedObjects_.size() == 1) showPropertyPanel();
    } else {
        pressOnEmptyCanvas(extend);
    }
}

void ZORDashboardPlugIn::pressOnEmptyCanvas(bool extend) {
    // The second call clears the selection with Shift held too: a band always starts afresh.
    if (!extend) unselectAllObjects();
    unselectAllObjects();
    ask(propertyPanelController_, [](auto& panel) { panel.close(); });
    drawSelectionBox_ = true;
    createRubberBand();
    if (propertyPanelController_) {
        unselectAllObjects();
        selectObject(container());
        showPropertyPanel();
    }
}

void ZORDashboardPlugIn::mouseUp(const EventPtr& event) {
    ZORPlugIn::mouseUp(event);
    lastMouseEvent_ = event;
    ask(mouseCoordinateView_, [](View& label) { label.setHidden(true); });
    if (!editView_ || !editView_->editMode()) {
        didDrag_ = false;
        return;
    }
    registerDragUndo(std::exchange(selectedObjectFrames_, {}));

    const auto widget = objectUnderMouse(event);
    if (!widget && !drawSelectionBox_) {
        // didDrag stays as it is on this path, until a release that takes the full one.
        unselectAllObjects();
        return;
    }
    const bool extend = event->hasFlag(shiftKeyMask);
    clickOffset_ = relativeToPlugInView(canvasPoint(event));
    if (widget && !didDrag_) click(widget, extend);
    const bool alone = selectedObjects_.size() == 1;
    for (const auto& each : selectedObjects_) each->setAllowResize(alone);
    if (!widget && !extend && !didDrag_) unselectAllObjects();
    destroyRubberBand();
    drawSelectionBox_ = false;
    didDrag_ = false;
}

void ZORDashboardPlugIn::click(const std::shared_ptr<ZORWidgetHostView>& widget, bool extend) {
    if (widget->selected()) unselectObject(widget);
    if (!extend) unselectAllObjects();
    selectObject(widget);
    widget->setMouseDownPoint(mouseDownPoint_);
    widget->setClickOffsetX(mouseDownPoint_.x - widget->frameXCoordinate());
    widget->setClickOffsetY(mouseDownPoint_.y - widget->frameYCoordinate());
    if (selectedObjects_.size() > 1) hidePropertyPanel();
}

void ZORDashboardPlugIn::registerDragUndo(std::vector<Value> snapshots) {
    undoManager_->registerUndoWithTarget(shared_from_this(), [snapshots = std::move(snapshots)](Object& target) {
        const auto canvas = static_cast<ZORDashboardPlugIn&>(target).editView();
        if (canvas) restoreFrames(*canvas, snapshots, setFrameByCoordinates);
    });
}

std::shared_ptr<ZORWidgetHostView> ZORDashboardPlugIn::topmostWidgetAt(Point point) const {
    // Every child of the canvas is a widget.
    return std::static_pointer_cast<ZORWidgetHostView>(editView_->topmostChildAt(point));
}

void ZORDashboardPlugIn::becomeFirstResponder() {
    if (auto* window = view()->window()) window->makeFirstResponder(sharedAs<Responder>());
}

void ZORDashboardPlugIn::showCoordinateLabel() {
    if (!mouseCoordinateView_) {
        mouseCoordinateView_ = std::make_shared<TextField>(Rect{0, 0, 200, 24});
        view()->addSubview(mouseCoordinateView_);
    }
    mouseCoordinateView_->setHidden(false);
}

void ZORDashboardPlugIn::setCoordinateText(Point point) {
    if (!mouseCoordinateView_) return;
    // A 64-bit float can have over three hundred digits before the point.
    char text[700];
    std::snprintf(text, sizeof text, "(%.1f,%.1f)", point.x, point.y);
    mouseCoordinateView_->setStringValue(text);
}

Point ZORDashboardPlugIn::relativeToPlugInView(Point point) {
    const Point origin = view()->frame().origin();
    return {point.x - origin.x, point.y - origin.y};
}

}  // namespace zor
