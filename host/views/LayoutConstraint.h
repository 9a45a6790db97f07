#pragma once

#include <memory>

namespace zor {

class View;

enum class LayoutAttribute { left, right, top, bottom, width, height };

/// attribute of `target` = attribute of `host` × multiplier + constant. Both sides are measured in the host's
/// coordinates.
struct LayoutConstraint {
    std::weak_ptr<View> target;
    LayoutAttribute attribute = LayoutAttribute::left;
    double multiplier = 1;
    double constant = 0;
    bool active = true;
};

}  // namespace zor
