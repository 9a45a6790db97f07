#pragma once

#include <memory>
#include <vector>

#include "host/station/Agent.h"
#include "host/views/View.h"

namespace zor {

/// The widgets of a standard dashboard for what the station really has: gauges for temperature, wind and pressure,
/// lit displays in the two custom fonts for humidity, dew point and more, plots of the day. The rows are equally wide
/// whatever is missing, with margins of 20 points; nothing for a station without properties.
std::vector<std::shared_ptr<View>> standardWidgets(Agent& agent);

}  // namespace zor
