#pragma once
// Where readings come from, as a person names it everywhere: "simulated", "weewx:FILE".

#include <string>

#include "host/foundation/Result.h"
#include "host/station/Agent.h"

namespace zor {

/// Whether the text names a source rather than a file: whatever stands before its file is the name of one.
bool namesSource(const std::string& text);
/// The configuration of a station that is read from there, in metric units; the error says what there is instead.
Result<AgentConfiguration> configurationOfSource(const std::string& source);
/// The name of the source that a station is configured for.
std::string sourceOf(const AgentConfiguration& configuration);

}  // namespace zor
