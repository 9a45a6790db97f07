#pragma once
// Frames remembered for undo, and the way back to the widgets that they belong to.

#include <functional>
#include <vector>

#include "dashboard/ZORDashboardEditView.h"

namespace zor {

/// {"objectHash": the widget's hash, "frame": its frame as rectangle text}.
Value frameSnapshot(const ZORWidgetHostView& widget);
/// For each entry in order, the first widget of the canvas with the entry's hash and the entry's frame; entries whose
/// widget is no longer there are passed over.
void restoreFrames(const ZORDashboardEditView& canvas, const std::vector<Value>& snapshots,
                   const std::function<void(ZORWidgetHostView&, const Rect&)>& restore);
/// By the four coordinate setters, in the order x, y, width, height.
void setFrameByCoordinates(ZORWidgetHostView& widget, const Rect& frame);

}  // namespace zor
