#pragma once

#include <vector>

namespace zor {

/// The distance of neighbouring marks on a scale: 1, 2 or 5 times a power of ten. Multiples are the doubles nearest to
/// the decimal numbers meant: the third multiple of 0.1 is 0.3.
class NiceStep {
public:
    /// The smallest step that cuts `span` into at most `mostSteps` pieces; both must be positive and finite, otherwise
    /// it is 1.
    NiceStep(double span, int mostSteps);

    double size() const { return multiple(1); }
    double multiple(double count) const;
    /// The next larger one.
    NiceStep coarser() const;
    /// Digits after the point with which its multiples are exact.
    int decimals() const { return exponent_ < 0 ? -exponent_ : 0; }
    /// Pieces into which small marks divide it.
    int parts() const { return mantissa_ == 2 ? 4 : 5; }

    /// The multiple at or below, at or above and nearest to the value; a value that is off by no more than rounding
    /// counts as the multiple itself.
    double below(double value) const;
    double above(double value) const;
    double nearest(double value) const;
    /// Ascending, ends included; at most a thousand.
    std::vector<double> multiplesWithin(double least, double greatest) const;

private:
    double countBelow(double value) const;
    double countAbove(double value) const;

    int mantissa_ = 1;
    int exponent_ = 0;
};

}  // namespace zor
