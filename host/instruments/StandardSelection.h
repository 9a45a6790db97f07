#pragma once

#include <memory>
#include <vector>

#include "host/station/Agent.h"

namespace zor {

/// What a standard dashboard shows of a station, each row in its order.
struct StandardSelection {
    using Properties = std::vector<std::shared_ptr<Property>>;

    /// Temperature, wind speed and direction, pressure, as far as the station has them.
    Properties gauges;
    /// Humidity and dew point first, then what else there is; at most four.
    Properties displays;
    /// Temperature, pressure, humidity and wind speed first, then what else is shown; at most three.
    Properties plots;

    static StandardSelection of(const Agent& agent);
};

}  // namespace zor
