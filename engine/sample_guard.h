#pragma once

#include <algorithm>
#include <cmath>

namespace velmora {

/// Largest magnitude that enters the strip; modules keep their states finite up to here.
inline constexpr double kSampleLimit = 1e6;

/// Makes a host's sample fit for the modules: NaN and infinities become silence, magnitudes stay within
/// the limit.
inline double guardSample(double x)
{
    return std::isfinite(x) ? std::clamp(x, -kSampleLimit, kSampleLimit) : 0.0;
}

} // namespace velmora
