#include "dashboard/FrameSnapshot.h"
#include "dashboard/ZORDashboardPlugIn.h"

namespace zor {

namespace {

enum AlignmentMode : std::uint32_t { alignTop = 1, alignLeft = 2, alignBottom = 3, alignRight = 4 };

bool isBeyond(const Rect& frame, const Rect& reference, std::uint32_t mode) {
    switch (mode) {
        case alignTop: return frame.y < reference.y;
        case alignLeft: return frame.x < reference.x;
        case alignBottom: return frame.maxY() > reference.maxY();
        case alignRight: return frame.maxX() > reference.maxX();
        default: return false;
    }
}

Rect alignedFrame(Rect frame, const Rect& reference, std::uint32_t mode) {
    switch (mode) {
        case alignTop: frame.y = reference.y; break;
        case alignLeft: frame.x = reference.x; break;
        case alignBottom: frame.y = reference.y + reference.height - frame.height; break;
        case alignRight: frame.x = reference.x + reference.width - frame.width; break;
        default: break;
    }
    return frame;
}

}  // namespace

void ZORDashboardPlugIn::alignTopEdges(const ObjectPtr&) { alignEdges(alignTop); }
void ZORDashboardPlugIn::alignLeftEdges(const ObjectPtr&) { alignEdges(alignLeft); }
void ZORDashboardPlugIn::alignBottomEdges(const ObjectPtr&) { alignEdges(alignBottom); }
void ZORDashboardPlugIn::alignRightEdges(const ObjectPtr&) { alignEdges(alignRight); }

void ZORDashboardPlugIn::alignEdges(std::uint32_t mode) {
    if (selectedObjects_.empty()) return;
    // The first widget beyond the first selected one becomes the reference; it is no search for the extreme.
    auto reference = selectedObjects_.front();
    for (const auto& widget : selectedObjects_) {
        if (isBeyond(widget->frame(), reference->frame(), mode)) {
            reference = widget;
            break;
        }
    }
    const Rect referenceFrame = reference->frame();
    std::vector<Value> snapshots;
    for (const auto& widget : selectedObjects_) {
        if (widget == reference) continue;
        snapshots.push_back(frameSnapshot(*widget));
        setFrameByCoordinates(*widget, alignedFrame(widget->frame(), referenceFrame, mode));
    }
    undoManager_->registerUndoWithTarget(shared_from_this(), [snapshots = std::move(snapshots)](Object& target) {
        const auto canvas = static_cast<ZORDashboardPlugIn&>(target).editView();
        if (!canvas) return;
        restoreFrames(*canvas, snapshots, [](ZORWidgetHostView& widget, const Rect& frame) { widget.setFrame(frame); });
    });
}

}  // namespace zor
