#pragma once

#include "dsp/lanes.h"
#include "modules/limiter/limiter_window.h"

#include <array>
#include <cmath>
#include <cstddef>

/// Gain curves of the limiters over a chunk. All keep the bits of libm: a compressor behind may be set so
/// that its fall overshoots, and then raises a last bit sample by sample until it is heard. So tangents and
/// powers stay libm's, and lanes take what is exact.
namespace velmora::limiter {

/// Levels relative to the ceiling into gains, in place: 1 up to the ceiling, then what holds it.
/// @param levels room for a whole number of vectors
template <typename V>
VELMORA_KERNEL void hardGains(double* levels, std::size_t count)
{
    mapLanes<V>(levels, levels, count, [](const V& t) VELMORA_KERNEL_LAMBDA {
        return choose<V>(t >= 1.0, 1.0 / t, allLanes<V>(1.0));
    });
}

/// The same with a knee along a hyperbolic tangent. @param levels a chunk at most
/// @param minimum the gain is 1 for levels up to it
template <typename V>
VELMORA_KERNEL void softGains(double* levels, std::size_t count, double minimum)
{
    std::array<double, kChunk> bent{};
    for (std::size_t i = 0; i < count; ++i) bent[i] = std::tanh(levels[i]);
    for (std::size_t i = 0; i < count; i += kLaneCount<V>) {
        const V t = loadLanes<V>(levels + i);
        const V gain = loadLanes<V>(bent.data() + i) / t;
        storeLanes<V>(levels + i, choose<V>(t <= minimum, allLanes<V>(1.0), gain));
    }
}

} // namespace velmora::limiter
