#pragma once

#include <cstddef>
#include <vector>

#include "host/station/Reading.h"

namespace zor {

/// Fewer samples of a long span, from all of them in ascending order: the span is cut into equal pieces, and of each
/// the least and the greatest sample stay, or the sum of all at the time of the last.
class Thinning {
public:
    enum class Keep { extremes, sum };

    /// Gives at most two samples per piece.
    Thinning(Seconds from, Seconds to, std::size_t pieces, Keep keep);
    void add(const Sample& sample);
    std::vector<Sample> finish();

private:
    void endPiece();

    Seconds from_;
    Seconds pieceLength_;
    Keep keep_;
    double piece_ = -1;
    Sample least_;
    Sample greatest_;
    Sample sum_;
    std::vector<Sample> samples_;
};

}  // namespace zor
