#include "app/window/EditWatch.h"

#include "host/instruments/ZORWidgetHostView.h"

namespace zor {

bool EditWatch::noticesChange(const SiteWindowController& controller) {
    bool isDifferent = false;
    std::map<std::string, Layout> present;
    for (const auto& plugIn : controller.plugIns()) {
        const auto canvas = plugIn->valueForKey("editView").as<View>();
        if (!canvas) continue;
        Layout& layout = present[plugIn->uniqueIdentifier()];
        for (const auto& view : canvas->subviews()) {
            const auto* widget = dynamic_cast<const ZORWidgetHostView*>(view.get());
            if (widget) layout.emplace_back(widget->hash(), widget->frame());
        }
        // A dashboard that is new in the list has been told of already.
        const auto known = layouts_.find(plugIn->uniqueIdentifier());
        isDifferent |= known != layouts_.end() && known->second != layout;
    }
    layouts_.swap(present);
    return isDifferent;
}

}  // namespace zor
