#pragma once

#include <string>

namespace zor {

/// A labelled mark on an axis, at its position in the axis's own unit.
struct PlotTick {
    double position = 0;
    std::string label;
    bool operator==(const PlotTick&) const = default;
};

}  // namespace zor
