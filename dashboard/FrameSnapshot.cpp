#include "dashboard/FrameSnapshot.h"

#include <unordered_map>

namespace zor {

Value frameSnapshot(const ZORWidgetHostView& widget) {
    return Value::Dictionary{{"objectHash", widget.hash()}, {"frame", stringFromRect(widget.frame())}};
}

void restoreFrames(const ZORDashboardEditView& canvas, const std::vector<Value>& snapshots,
                   const std::function<void(ZORWidgetHostView&, const Rect&)>& restore) {
    std::unordered_map<std::int64_t, ZORWidgetHostView*> widgets;
    for (auto& widget : canvas.widgets()) widgets.try_emplace(widget.hash(), &widget);
    for (const auto& snapshot : snapshots) {
        const auto found = widgets.find(snapshot["objectHash"].asInteger());
        if (found != widgets.end()) restore(*found->second, rectFromString(snapshot["frame"].asString()));
    }
}

void setFrameByCoordinates(ZORWidgetHostView& widget, const Rect& frame) {
    widget.setFrameXCoordinate(frame.x);
    widget.setFrameYCoordinate(frame.y);
    widget.setFrameWidth(frame.width);
    widget.setFrameHeight(frame.height);
}

}  // namespace zor
