#pragma once

#include <cstdint>

#include "host/station/Reading.h"

namespace zor {

/// Smooth random functions of time: every moment can be asked in any order, and the seed decides everything.
class ValueNoise {
public:
    explicit ValueNoise(std::uint64_t seed) : seed_(seed) {}

    /// A random number in [0, 1) that belongs to a cell of a channel. Channels are independent of each other.
    double unit(std::uint32_t channel, std::int64_t cell) const;
    /// In [-1, 1]: one random value every `period` seconds, eased between.
    double smooth(std::uint32_t channel, Seconds time, Seconds period) const;

private:
    std::uint64_t seed_;
};

/// 0 up to `from`, 1 from `to` on, eased between (3x² - 2x³).
double ease(double value, double from, double to);

}  // namespace zor
