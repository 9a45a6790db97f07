#include "host/instruments/NiceStep.h"

#include <cmath>

namespace zor {

namespace {

/// Part of a step by which a value may miss a multiple and still be taken for it.
constexpr double rounding = 1e-6;
constexpr double mostMultiples = 1000;

}  // namespace

NiceStep::NiceStep(double span, int mostSteps) {
    if (!(span > 0) || !std::isfinite(span) || mostSteps <= 0) return;
    const double least = span / mostSteps * (1 - rounding);
    exponent_ = static_cast<int>(std::floor(std::log10(least)));
    while (size() < least) *this = coarser();
}

double NiceStep::multiple(double count) const {
    const double tens = std::pow(10, std::abs(exponent_));
    // Dividing by an exact power of ten rounds once; multiplying by an inexact one would round twice.
    return exponent_ < 0 ? count * mantissa_ / tens : count * mantissa_ * tens;
}

NiceStep NiceStep::coarser() const {
    NiceStep next = *this;
    if (mantissa_ == 5) {
        next.mantissa_ = 1;
        ++next.exponent_;
    } else {
        next.mantissa_ = mantissa_ == 1 ? 2 : 5;
    }
    return next;
}

double NiceStep::countBelow(double value) const {
    return std::floor(value / size() + rounding);
}

double NiceStep::countAbove(double value) const {
    return std::ceil(value / size() - rounding);
}

double NiceStep::below(double value) const {
    return multiple(countBelow(value));
}

double NiceStep::above(double value) const {
    return multiple(countAbove(value));
}

double NiceStep::nearest(double value) const {
    return multiple(std::round(value / size()));
}

std::vector<double> NiceStep::multiplesWithin(double least, double greatest) const {
    const double first = countAbove(least);
    const double last = std::fmin(countBelow(greatest), first + mostMultiples - 1);
    std::vector<double> multiples;
    // Adding zero takes the sign from a negative zero.
    for (double count = first; count <= last; ++count) multiples.push_back(multiple(count) + 0.0);
    return multiples;
}

}  // namespace zor
