#include <algorithm>

#include "host/foundation/KeyedArchiver.h"
#include "host/instruments/ZORWidgetHostView.h"

namespace zor {

bool ZORWidgetHostView::canReadFromPasteboard(const Pasteboard& pasteboard) {
    return std::ranges::count(pasteboard.types(), widgetPasteType) > 0;
}

std::optional<std::vector<std::shared_ptr<ZORWidgetHostView>>> ZORWidgetHostView::readFromPasteboard(
    const Pasteboard& pasteboard) {
    const Bytes data = pasteboard.dataForType(widgetPasteType);
    const auto root = KeyedUnarchiver::unarchivedRoot(data);
    if (!root || !root->isArray()) return {};
    std::vector<std::shared_ptr<ZORWidgetHostView>> widgets;
    for (const auto& entry : root->asArray()) {
        if (auto widget = entry.as<ZORWidgetHostView>()) widgets.push_back(std::move(widget));
    }
    return widgets;
}

}  // namespace zor
