#include "app/window/EditorState.h"

#include <algorithm>

#include "host/foundation/UndoManager.h"
#include "host/station/ZORPlugIn.h"
#include "host/views/Toolkit.h"

namespace zor {

EditorState EditorState::of(const std::shared_ptr<ZORPlugIn>& dashboard) {
    EditorState state;
    if (!dashboard) return state;
    const auto canvas = dashboard->valueForKey("editView").as<View>();
    state.isEdited = ask(canvas, [](const View& view) { return view.valueForKey("editMode").asBool(); });
    const auto undoManager = dashboard->valueForKey("undoManager").as<UndoManager>();
    state.canUndo = ask(undoManager, [](const UndoManager& manager) { return manager.canUndo(); });
    state.canRedo = ask(undoManager, [](const UndoManager& manager) { return manager.canRedo(); });
    state.canPaste = ZORWidgetHostView::canReadFromPasteboard(Toolkit::current().generalPasteboard());
    if (!canvas) return state;
    for (const auto& view : canvas->subviews()) {
        if (auto widget = std::dynamic_pointer_cast<ZORWidgetHostView>(view)) state.widgets.push_back(std::move(widget));
    }
    const Value selected = dashboard->valueForKey("selectedObjects");
    state.isAnythingSelected = !selected.asArray().empty();
    for (const auto& each : selected.asArray()) {
        auto widget = each.as<ZORWidgetHostView>();
        if (widget && widget->superview() == canvas.get()) state.selection.push_back(std::move(widget));
    }
    return state;
}

bool EditorState::isSelectionInFront() const {
    return selection.size() <= widgets.size() && std::equal(selection.rbegin(), selection.rend(), widgets.rbegin());
}

bool EditorState::isSelectionAtBack() const {
    return selection.size() <= widgets.size() && std::equal(selection.rbegin(), selection.rend(), widgets.begin());
}

}  // namespace zor
