#pragma once

#include <functional>
#include <memory>

#include "dashboard/ZORDashboardPlugIn.h"

namespace zor {

/// A dashboard that lives in a window nobody sees, as if it were shown: its picture is drawn as small as needed and
/// follows its values.
class DashboardStage {
public:
    /// The dashboard may be absent: there is nothing to draw then. `changed` is told when the picture is another.
    DashboardStage(std::shared_ptr<ZORDashboardPlugIn> dashboard, std::function<void()> changed);

    /// A sheet of paper as large as fits into the middle of the area, never larger than the canvas; "No preview" where
    /// there is none to draw.
    void draw(DrawingContext& context, const Rect& area) const;

private:
    class Peer;

    std::shared_ptr<ZORDashboardPlugIn> dashboard_;
    std::shared_ptr<Window> window_;
};

}  // namespace zor
