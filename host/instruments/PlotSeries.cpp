#include "host/instruments/PlotSeries.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

namespace zor {

namespace {

constexpr Seconds quarterOfAnHour = 900;
constexpr double usualPauses = 3;

using Extremes = std::pair<SampleRun::iterator, SampleRun::iterator>;

/// The least and the greatest in time's order, which may be one and the same.
Extremes extremesOf(SampleRun column) {
    const auto [least, greatest] = std::ranges::minmax_element(column, {}, &Sample::value);
    return std::minmax(least, greatest);
}

/// Calls `visit` with the samples of each column that has any, from the first to the last.
template <typename Visit>
void forEachColumn(SampleRun run, const TimeSpan& span, int columns, Visit visit) {
    const auto columnOf = [&](const Sample& sample) {
        return std::floor((sample.time - span.from) / (span.to - span.from) * columns);
    };
    while (!run.empty()) {
        const double column = columnOf(run.front());
        const auto others = run.subspan(1);
        const auto next = std::ranges::find_if(others, [&](const Sample& each) { return columnOf(each) != column; });
        const auto length = static_cast<std::size_t>(next - others.begin()) + 1;
        visit(run.first(length));
        run = run.subspan(length);
    }
}

}  // namespace

Seconds longestPause(SampleRun samples) {
    if (samples.size() < 2) return quarterOfAnHour;
    std::vector<Seconds> pauses;
    pauses.reserve(samples.size() - 1);
    for (std::size_t index = 1; index < samples.size(); ++index) {
        pauses.push_back(samples[index].time - samples[index - 1].time);
    }
    const auto median = pauses.begin() + static_cast<std::ptrdiff_t>((pauses.size() - 1) / 2);
    std::ranges::nth_element(pauses, median);
    return std::max(usualPauses * *median, quarterOfAnHour);
}

std::vector<SampleRun> unbrokenRuns(SampleRun samples) {
    const Seconds longest = longestPause(samples);
    std::vector<SampleRun> runs;
    std::size_t start = 0;
    for (std::size_t index = 1; index <= samples.size(); ++index) {
        if (index < samples.size() && samples[index].time - samples[index - 1].time <= longest) continue;
        runs.push_back(samples.subspan(start, index - start));
        start = index;
    }
    return runs;
}

std::vector<Sample> thinned(SampleRun run, const TimeSpan& span, int columns) {
    std::vector<Sample> result;
    const auto append = [&](SampleRun::iterator sample) {
        if (result.empty() || result.back() != *sample) result.push_back(*sample);
    };
    if (!run.empty()) append(run.begin());
    forEachColumn(run, span, columns, [&](SampleRun column) {
        const auto [first, second] = extremesOf(column);
        append(first);
        append(second);
    });
    if (!run.empty()) append(run.end() - 1);
    return result;
}

std::vector<Sample> halfway(SampleRun run, const TimeSpan& span, int columns) {
    std::vector<Sample> result;
    if (run.empty()) return result;
    result.push_back(run.front());
    forEachColumn(run, span, columns, [&](SampleRun column) {
        const auto [first, second] = extremesOf(column);
        result.push_back({std::midpoint(first->time, second->time), std::midpoint(first->value, second->value)});
    });
    result.push_back(run.back());
    return result;
}

}  // namespace zor
