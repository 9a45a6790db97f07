#include <algorithm>

#include "host/instruments/ZORWidgetHostView.h"
#include "host/views/Event.h"

namespace zor {

View* ZORWidgetHostView::hitTest(Point point) {
    View* hit = View::hitTest(point);
    return hit && !hostsCanvas() ? this : hit;
}

Rect ZORWidgetHostView::resizeHandle() const {
    return {bounds().width - handleSide, bounds().height - handleSide, handleSide, handleSide};
}

PointerShape ZORWidgetHostView::pointerShapeAt(Point point) const {
    const bool isOnHandle = allowResize_ && !hostsCanvas() && pointInRect(point, resizeHandle());
    return isOnHandle ? PointerShape::resizeDiagonally : PointerShape::arrow;
}

bool ZORWidgetHostView::isHandlePress(const Event& event) const {
    const Point point = convertPointFromView(event.locationInWindow(), nullptr);
    return allowResize_ && !event.hasFlag(controlKeyMask) && pointInRect(point, resizeHandle()) &&
           isTopmostAt(event.locationInWindow());
}

/// Presses come up the chain too: those on a canvas reach its container.
bool ZORWidgetHostView::isTopmostAt(Point locationInWindow) const {
    View* root = superview();
    while (root && root->superview()) root = root->superview();
    return root && root->hitTest(locationInWindow) == this;
}

Point ZORWidgetHostView::pointInParent(const Event& event) const {
    return superview()->convertPointFromView(event.locationInWindow(), nullptr);
}

ZORWidgetHostView::Press& ZORWidgetHostView::press() {
    if (!press_) press_ = std::make_unique<Press>();
    return *press_;
}

void ZORWidgetHostView::mouseDown(const EventPtr& event) {
    if (isHandlePress(*event)) {
        press().resizing = Resizing{pointInParent(*event), frame().size()};
        inLiveResize_ = true;
    }
    View::mouseDown(event);
}

void ZORWidgetHostView::mouseDragged(const EventPtr& event) {
    // Whoever remembers frames at the start of a drag must see the one from before.
    View::mouseDragged(event);
    if (!press_ || !press_->resizing || !superview()) return;
    const Point at = pointInParent(*event);
    const auto& [start, sizeAtStart] = *press_->resizing;
    const Size size{std::max(leastSide, sizeAtStart.width + at.x - start.x),
                    std::max(leastSide, sizeAtStart.height + at.y - start.y)};
    setFrame({frame().x, frame().y, size.width, size.height});
}

void ZORWidgetHostView::mouseUp(const EventPtr& event) {
    if (press_) press_->resizing.reset();
    inLiveResize_ = false;
    View::mouseUp(event);
}

}  // namespace zor
