#pragma once

#include <cmath>
#include <limits>

namespace velmora::test {

/// How far apart two values are: 0 if they are equal or both no number, infinite if only one is a finite
/// number. A largest difference taken with std::max would leave out one that is no number.
inline double gapBetween(double a, double b)
{
    if (a == b || (std::isnan(a) && std::isnan(b))) return 0.0;
    const double gap = std::fabs(a - b);
    return std::isfinite(gap) ? gap : std::numeric_limits<double>::infinity();
}

} // namespace velmora::test
