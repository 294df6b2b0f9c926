#pragma once

#include "dsp/lanes.h"
#include "modules/limiter/fourth_root.h"
#include "modules/limiter/limiter_window.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace velmora::limiter {

/// Gain curves of the saturator, from the smoothest and lightest to the sharpest.
enum class SaturatorShape : std::int32_t { Valve1, Valve2, Tape1, Tape2, SoftClip, HardClip };
inline constexpr std::int32_t kLastSaturatorShape = static_cast<std::int32_t>(SaturatorShape::HardClip);

namespace detail {

/// `levels[i] = finish(bend(levels[i])) / levels[i]`, and 1 where the level is too low to divide by. `bend`
/// works on a sample, `finish` on the whole chunk.
template <typename V, typename Bend, typename Finish>
VELMORA_KERNEL void bendLevels(double* levels, std::size_t count, Bend bend, Finish finish)
{
    constexpr double kTiny = 1e-8;
    std::array<double, kChunk> bent{};
    for (std::size_t i = 0; i < count; ++i) bent[i] = bend(levels[i]);
    finish(bent.data());
    for (std::size_t i = 0; i < count; i += kLaneCount<V>) {
        const V t = loadLanes<V>(levels + i);
        const V gain = loadLanes<V>(bent.data() + i) / t;
        storeLanes<V>(levels + i, choose<V>(t > kTiny, gain, allLanes<V>(1.0)));
    }
}

} // namespace detail

/// Turns a block of levels relative to the ceiling, 0 or more, into gains 0..1, in place; 1 at silence. All
/// to the bits of libm: a last bit that differs is raised by the post-emphasis, whose poles lie next to 1, to
/// almost 1e-9 of the peak at a high rate. So tangents stay libm's, and lanes take what is exact.
/// @param levels a chunk at most; room for a whole number of vectors
template <typename V>
VELMORA_KERNEL void saturatorGains(SaturatorShape shape, double* levels, std::size_t count)
{
    constexpr double kValveDrive = 0.33;
    const auto leave = [](double*) VELMORA_KERNEL_LAMBDA {};
    const auto root = [=](double* bent) VELMORA_KERNEL_LAMBDA {
        mapLanes<V>(bent, bent, count, [](const V& v) VELMORA_KERNEL_LAMBDA { return sqrtLanes<V>(v); });
    };
    switch (shape) {
    case SaturatorShape::Valve1:
        mapLanes<V>(levels, levels, count, [](const V& t) VELMORA_KERNEL_LAMBDA {
            return 1.0 / (kValveDrive * sqrtLanes<V>(t) + 1.0);
        });
        break;
    case SaturatorShape::Valve2:
        mapLanes<V>(levels, levels, count,
                    [](const V& t) VELMORA_KERNEL_LAMBDA { return 1.0 / (kValveDrive * t + 1.0); });
        break;
    case SaturatorShape::Tape1:
        detail::bendLevels<V>(
            levels, count, [](double t) VELMORA_KERNEL_LAMBDA { return std::atan(t); }, leave);
        break;
    case SaturatorShape::Tape2:
        detail::bendLevels<V>(
            levels, count, [](double t) VELMORA_KERNEL_LAMBDA { return std::tanh(t); }, leave);
        break;
    case SaturatorShape::SoftClip:
        detail::bendLevels<V>(
            levels, count, [](double t) VELMORA_KERNEL_LAMBDA { return std::tanh(t * t); }, root);
        break;
    case SaturatorShape::HardClip:
        detail::bendLevels<V>(
            levels, count, [](double t) VELMORA_KERNEL_LAMBDA { return std::tanh(t * t * t * t); },
            [=](double* bent) VELMORA_KERNEL_LAMBDA { fourthRoots<V>(bent, count); });
        break;
    }
}

} // namespace velmora::limiter
