#pragma once

#include <memory>
#include <vector>

#include "host/instruments/ZORWidgetHostView.h"

namespace zor {

class ZORPlugIn;

/// What of a dashboard decides which commands have something to do, read by the names that its class declares.
struct EditorState {
    using Widgets = std::vector<std::shared_ptr<ZORWidgetHostView>>;

    /// Of no plug-in, all is false and empty.
    static EditorState of(const std::shared_ptr<ZORPlugIn>& dashboard);

    bool isEdited = false;
    bool canUndo = false;
    bool canRedo = false;
    bool canPaste = false;
    /// The widgets of the canvas, and those that are selected in the order of their selection.
    Widgets widgets;
    Widgets selection;
    /// The canvas itself counts here.
    bool isAnythingSelected = false;

    bool isSelectionInFront() const;
    bool isSelectionAtBack() const;
};

}  // namespace zor
