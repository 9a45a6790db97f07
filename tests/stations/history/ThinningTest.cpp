#include "stations/history/Thinning.h"

#include <gmock/gmock.h>

namespace zor {
namespace {

using testing::ElementsAre;

std::vector<Sample> thinned(const std::vector<Sample>& samples, std::size_t pieces, Thinning::Keep keep) {
    Thinning thinning(samples.front().time, samples.back().time, pieces, keep);
    for (const auto& sample : samples) thinning.add(sample);
    return thinning.finish();
}

const std::vector<Sample> kSamples = {{0, 5}, {1, 2}, {2, 9}, {3, 4}, {5, 1}, {6, 1}, {7, 8}, {10, 3}};

TEST(Thinning, KeepsLeastAndGreatestOfEachPieceInOrder) {
    EXPECT_THAT(thinned(kSamples, 2, Thinning::Keep::extremes),
                ElementsAre(Sample{2, 9}, Sample{5, 1}, Sample{6, 1}, Sample{7, 8}));
    EXPECT_THAT(thinned(kSamples, 1, Thinning::Keep::extremes), ElementsAre(Sample{2, 9}, Sample{5, 1}));
}

TEST(Thinning, AddsUpEachPiece) {
    EXPECT_THAT(thinned(kSamples, 2, Thinning::Keep::sum), ElementsAre(Sample{5, 21}, Sample{10, 12}));
}

TEST(Thinning, ASinglePlainSampleStays) {
    EXPECT_THAT(thinned({{4, 7}, {4.5, 7}}, 1, Thinning::Keep::extremes), ElementsAre(Sample{4, 7}));
}

}  // namespace
}  // namespace zor
