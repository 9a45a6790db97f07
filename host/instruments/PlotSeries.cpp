#include "host/instruments/PlotSeries.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace zor {

namespace {

constexpr Seconds quarterOfAnHour = 900;
constexpr double usualPauses = 3;

void appendExtremes(std::vector<Sample>& result, SampleRun column) {
    const auto [least, greatest] = std::ranges::minmax_element(column, {}, &Sample::value);
    std::array chosen{column.begin(), least, greatest, column.end() - 1};
    std::ranges::sort(chosen);
    const auto end = std::unique(chosen.begin(), chosen.end());
    for (auto sample = chosen.begin(); sample != end; ++sample) result.push_back(**sample);
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
    const auto columnOf = [&](const Sample& sample) {
        return std::floor((sample.time - span.from) / (span.to - span.from) * columns);
    };
    std::vector<Sample> result;
    while (!run.empty()) {
        const double column = columnOf(run.front());
        const auto others = run.subspan(1);
        const auto next = std::ranges::find_if(others, [&](const Sample& each) { return columnOf(each) != column; });
        const auto length = static_cast<std::size_t>(next - others.begin()) + 1;
        appendExtremes(result, run.first(length));
        run = run.subspan(length);
    }
    return result;
}

}  // namespace zor
