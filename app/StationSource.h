#pragma once
// Where readings come from, as a person names it everywhere: "simulated", "simulated:seed=7,speed=60", "weewx:FILE".

#include <string>

#include "host/foundation/Result.h"
#include "host/station/Agent.h"

namespace zor {

/// Whether the text names a source rather than a file: whatever stands before its file is the name of one.
bool namesSource(const std::string& text);
/// The configuration of a station that is read from there, in metric units. The error says what there is instead, or
/// names the setting or its value; a number out of its range is refused by the driver.
Result<AgentConfiguration> configurationOfSource(const std::string& source);
/// The name of the source that a station is configured for, settings of the simulated one always in the same order.
std::string sourceOf(const AgentConfiguration& configuration);

}  // namespace zor
