#pragma once

#include <cmath>
#include <limits>

namespace velmora {

/// Largest magnitude that enters the strip; modules keep their states finite up to here.
inline constexpr double kSampleLimit = 1e6;

/// Makes a host's sample fit for the modules: NaN and infinities become silence, magnitudes stay within
/// the limit. Without a branch, so that a loop over samples becomes one over vectors.
inline double guardSample(double x)
{
    const double fromBelow = x < -kSampleLimit ? -kSampleLimit : x;
    const double held = fromBelow > kSampleLimit ? kSampleLimit : fromBelow;
    return std::fabs(x) <= std::numeric_limits<double>::max() ? held : 0.0;
}

} // namespace velmora
