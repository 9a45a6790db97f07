#include "stations/history/Thinning.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace zor {

Thinning::Thinning(Seconds from, Seconds to, std::size_t pieces, Keep keep)
    : from_(from), pieceLength_((to - from) / static_cast<double>(pieces)), keep_(keep) {}

void Thinning::add(const Sample& sample) {
    // The samples at the very end belong to the last piece that began before it.
    const double piece = std::max(0.0, std::ceil((sample.time - from_) / pieceLength_) - 1);
    if (piece != piece_) {
        endPiece();
        piece_ = piece;
        least_ = greatest_ = sample;
        sum_.value = 0;
    }
    if (sample.value < least_.value) least_ = sample;
    if (sample.value > greatest_.value) greatest_ = sample;
    sum_ = {sample.time, sum_.value + sample.value};
}

void Thinning::endPiece() {
    if (piece_ < 0) return;
    if (keep_ == Keep::sum) {
        samples_.push_back(sum_);
        return;
    }
    const auto [first, last] =
        std::minmax(least_, greatest_, [](const Sample& a, const Sample& b) { return a.time < b.time; });
    samples_.push_back(first);
    if (last.time != first.time) samples_.push_back(last);
}

std::vector<Sample> Thinning::finish() {
    endPiece();
    piece_ = -1;
    return std::exchange(samples_, {});
}

}  // namespace zor
