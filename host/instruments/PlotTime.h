#pragma once

#include <cstdint>
#include <vector>

#include "host/instruments/PlotTick.h"
#include "host/station/TimeSpans.h"

namespace zor {

/// Four-character codes of the spans of history that a plot shows; the first character is the most significant byte.
enum class PlotPeriod : std::uint32_t {
    /// "pdtd": from local midnight to the next.
    today = 0x70647464,
    /// "pdyd": yesterday and today.
    twoDays = 0x70647964,
    /// "pd24": the last 24 hours.
    last24Hours = 0x70643234,
    /// "pd7d": the last 7 days.
    last7Days = 0x70643764,
    /// "pd30": the last 30 days.
    last30Days = 0x70643330,
    /// "pd1y": the last 365 days.
    lastYear = 0x70643179,
};

/// The span of history that a period's code stands for; a code that is no PlotPeriod stands for today.
TimeSpan spanOfPeriod(std::uint32_t code, Seconds now);

/// Marks at round local times within the span, both ends included, ascending: the finest that are at most `mostTicks`
/// steps. Hours within a day, days and dates beyond; midnight has its day's name wherever more than one day shows.
std::vector<PlotTick> timeTicks(const TimeSpan& span, int mostTicks);

}  // namespace zor
