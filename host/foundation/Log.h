#pragma once
// Diagnostic lines. A library prints nothing; the application decides where they go.

#include <functional>
#include <string_view>

namespace zor {

using LogSink = std::function<void(std::string_view line)>;

/// Any thread.
void logLine(std::string_view line);
/// Replaces the sink (standard error at first) and gives the one before; an empty sink drops the lines.
LogSink setLogSink(LogSink sink);

}  // namespace zor
