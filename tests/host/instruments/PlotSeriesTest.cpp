#include "host/instruments/PlotSeries.h"

#include <gmock/gmock.h>

#include <cmath>

namespace zor {

void PrintTo(const Sample& sample, std::ostream* out) {
    *out << '(' << sample.time << ", " << sample.value << ')';
}

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<Sample> at(std::initializer_list<Seconds> times) {
    std::vector<Sample> samples;
    for (const Seconds time : times) samples.push_back({time, 1});
    return samples;
}

std::vector<std::size_t> lengths(const std::vector<Sample>& samples) {
    std::vector<std::size_t> result;
    for (const auto& run : unbrokenRuns(samples)) result.push_back(run.size());
    return result;
}

TEST(PlotGaps, AreLongerThanThreeUsualPausesAndAQuarterOfAnHour) {
    EXPECT_EQ(longestPause(at({0, 60, 120, 180})), 900);
    EXPECT_EQ(longestPause(at({0, 600, 1200, 1800})), 1800);
    EXPECT_EQ(longestPause(at({0, 600, 1200, 1800, 90000})), 1800);
    EXPECT_EQ(longestPause(at({5})), 900);
    EXPECT_EQ(longestPause({}), 900);
}

TEST(PlotGaps, CutTheLine) {
    EXPECT_THAT(lengths(at({0, 600, 1200, 3000, 4801, 5400})), ElementsAre(4, 2));
    EXPECT_THAT(lengths(at({0, 60, 120, 1020, 1921, 1980})), ElementsAre(4, 2));
    EXPECT_THAT(lengths(at({0, 60, 120, 180, 5000, 10000})), ElementsAre(4, 1, 1));
    EXPECT_THAT(lengths(at({7})), ElementsAre(1));
    EXPECT_THAT(lengths({}), IsEmpty());
}

TEST(PlotGaps, RunsKeepTheirSamplesInOrder) {
    const auto samples = at({0, 60, 120, 5000, 5060});
    const auto runs = unbrokenRuns(samples);
    ASSERT_EQ(runs.size(), 2u);
    EXPECT_EQ(runs[0].front().time, 0);
    EXPECT_EQ(runs[0].back().time, 120);
    EXPECT_EQ(runs[1].front().time, 5000);
    EXPECT_EQ(runs[1].back().time, 5060);
}

TEST(PlotThinning, KeepsTheEndsAndTheExtremesOfEachColumn) {
    const std::vector<Sample> run{{0, 1}, {1, 5}, {1.5, 4}, {2, 0}, {3, 3}, {4, 2}, {5, 2}, {6, 2}, {7, 2}};
    EXPECT_THAT(thinned(run, {0, 8}, 2),
                ElementsAre(Sample{0, 1}, Sample{1, 5}, Sample{2, 0}, Sample{4, 2}, Sample{7, 2}));
}

TEST(PlotThinning, LeavesFewSamplesAsTheyAre) {
    const std::vector<Sample> run{{0, 1}, {2, 5}, {4, 3}};
    EXPECT_EQ(thinned(run, {0, 8}, 480), run);
    EXPECT_THAT(thinned({}, {0, 8}, 480), IsEmpty());
}

TEST(PlotThinning, LosesNoExtremeOfADay) {
    std::vector<Sample> day;
    for (int minute = 0; minute < 1440; ++minute) {
        day.push_back({minute * 60.0, std::sin(minute / 100.0)});
    }
    day[777].value = 40;
    day[1001].value = -40;
    const auto points = thinned(day, {0, 86400}, 100);
    EXPECT_LE(points.size(), 202u);
    EXPECT_EQ(points.front(), day.front());
    EXPECT_EQ(points.back(), day.back());
    EXPECT_THAT(points, testing::Contains(day[777]));
    EXPECT_THAT(points, testing::Contains(day[1001]));
    EXPECT_TRUE(std::ranges::is_sorted(points, {}, &Sample::time));
}

TEST(PlotThinning, EndsAlsoWithoutASpan) {
    const std::vector<Sample> run{{5, 1}, {5, 2}, {5, 3}};
    EXPECT_FALSE(thinned(run, {5, 5}, 10).empty());
}

TEST(PlotHalfway, TakesOnePointOfEachColumnBetweenItsExtremes) {
    const std::vector<Sample> run{{0, 1}, {1, 5}, {2, 0}, {3, 3}, {4, 2}, {7, 2}};
    EXPECT_THAT(halfway(run, {0, 8}, 2), ElementsAre(Sample{0, 1}, Sample{1.5, 2.5}, Sample{5.5, 2}, Sample{7, 2}));
}

TEST(PlotHalfway, FollowsFewSamples) {
    const std::vector<Sample> run{{0, 1}, {2, 5}, {4, 3}};
    EXPECT_THAT(halfway(run, {0, 8}, 480),
                ElementsAre(Sample{0, 1}, Sample{0, 1}, Sample{2, 5}, Sample{4, 3}, Sample{4, 3}));
    EXPECT_THAT(halfway({}, {0, 8}, 480), IsEmpty());
}

}  // namespace
}  // namespace zor
