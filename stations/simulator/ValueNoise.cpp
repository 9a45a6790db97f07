#include "stations/simulator/ValueNoise.h"

#include <algorithm>
#include <cmath>

namespace zor {
namespace {

/// The finalizer of the SplitMix64 generator (Steele, Lea, Flood 2014): spreads every input bit over the output.
std::uint64_t scramble(std::uint64_t bits) {
    bits += 0x9e3779b97f4a7c15U;
    bits = (bits ^ (bits >> 30U)) * 0xbf58476d1ce4e5b9U;
    bits = (bits ^ (bits >> 27U)) * 0x94d049bb133111ebU;
    return bits ^ (bits >> 31U);
}

}  // namespace

double ValueNoise::unit(std::uint32_t channel, std::int64_t cell) const {
    const auto bits = scramble(scramble(scramble(seed_) ^ channel) ^ static_cast<std::uint64_t>(cell));
    return std::ldexp(static_cast<double>(bits >> 11U), -53);
}

double ValueNoise::smooth(std::uint32_t channel, Seconds time, Seconds period) const {
    const double position = time / period;
    const auto cell = static_cast<std::int64_t>(std::floor(position));
    const double left = unit(channel, cell);
    const double right = unit(channel, cell + 1);
    return 2 * std::lerp(left, right, ease(position - std::floor(position), 0, 1)) - 1;
}

double ease(double value, double from, double to) {
    const double x = std::clamp((value - from) / (to - from), 0.0, 1.0);
    return x * x * (3 - 2 * x);
}

}  // namespace zor
