#pragma once

#include <span>
#include <vector>

#include "host/station/TimeSpans.h"

namespace zor {

using SampleRun = std::span<const Sample>;

/// The longest time between two samples that still counts as one line: three times the usual (median) one, and a
/// quarter of an hour at least.
Seconds longestPause(SampleRun samples);
/// The samples, ascending in time, cut wherever data is missing.
std::vector<SampleRun> unbrokenRuns(SampleRun samples);
/// What a line of `columns` equal columns over the span can show of a run: its first and last sample and, of each column,
/// the least and the greatest.
std::vector<Sample> thinned(SampleRun run, const TimeSpan& span, int columns);
/// What the edge below such a line needs: the run's first and last sample and, of each column, one halfway between the
/// least and the greatest, which the line covers.
std::vector<Sample> halfway(SampleRun run, const TimeSpan& span, int columns);

}  // namespace zor
