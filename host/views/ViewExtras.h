#pragma once

#include "host/views/ShapeLayer.h"
#include "host/views/View.h"

namespace zor {

struct View::Extras {
    std::vector<LayoutConstraint> constraints;
    std::vector<std::shared_ptr<ShapeLayer>> sublayers;
    std::function<void()> changeObserver;
};

}  // namespace zor
