#pragma once

#include <memory>
#include <vector>

#include "host/station/Agent.h"
#include "host/views/View.h"

namespace zor {

/// The widgets of a standard dashboard for what the station really has: gauges for wind, pressure, temperature and
/// humidity, labels in the custom fonts, plots; laid out in rows without gaps for what is missing.
std::vector<std::shared_ptr<View>> standardWidgets(Agent& agent);

}  // namespace zor
