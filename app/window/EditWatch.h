#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "host/foundation/Geometry.h"
#include "host/station/SiteWindowController.h"

namespace zor {

/// Notices that somebody has edited a dashboard: that widgets were added, removed, moved, resized or stacked anew.
/// Settings are noticed where they are set.
class EditWatch {
public:
    /// Whether anything of any dashboard in the list is different from the last call.
    bool noticesChange(const SiteWindowController& controller);

private:
    using Layout = std::vector<std::tuple<std::int64_t, Rect>>;

    std::map<std::string, Layout> layouts_;
};

}  // namespace zor
