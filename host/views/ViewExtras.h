#pragma once

#include "host/views/ShapeLayer.h"
#include "host/views/View.h"

namespace zor {

/// What is asked first of each of many children, side by side in memory.
struct View::ChildFrame {
    Rect frame;
    bool keepsWithinFrame = false;
};

struct View::Extras {
    /// Of every place among the children; empty while they are few.
    std::vector<ChildFrame> childFrames;
    std::vector<LayoutConstraint> constraints;
    std::vector<std::shared_ptr<ShapeLayer>> sublayers;
    std::function<void()> changeObserver;
};

inline const View::ChildFrame* View::childFrames() const {
    return extras_ && !extras_->childFrames.empty() ? extras_->childFrames.data() : nullptr;
}

}  // namespace zor
