#pragma once

#include "dsp/lanes.h"
#include "modules/limiter/limiter_window.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace velmora::limiter {

/// Gain curves of the saturator, from the smoothest and lightest to the sharpest.
enum class SaturatorShape : std::int32_t { Valve1, Valve2, Tape1, Tape2, SoftClip, HardClip };
inline constexpr std::int32_t kLastSaturatorShape = static_cast<std::int32_t>(SaturatorShape::HardClip);

/// The functions inside the curves are libm's, and roots aren't merged: a last bit that differs is raised by
/// the post-emphasis, whose poles lie next to 1, to almost 1e-9 of the peak at a high rate. What is exact by
/// its nature, arithmetic and square roots, runs in lanes.
namespace detail {

/// `levels[i] = finish(bend(levels[i])) / levels[i]`, and 1 where the level is too low to divide by. `bend`
/// works on a sample, `finish` on lanes.
template <typename V, typename Bend, typename Finish>
VELMORA_KERNEL void bendLevels(double* levels, std::size_t count, Bend bend, Finish finish)
{
    constexpr double kTiny = 1e-8;
    std::array<double, kChunk> bent{};
    for (std::size_t i = 0; i < count; ++i) bent[i] = bend(levels[i]);
    for (std::size_t i = 0; i < count; i += kLaneCount<V>) {
        const V t = loadLanes<V>(levels + i);
        const V gain = finish(loadLanes<V>(bent.data() + i)) / t;
        storeLanes<V>(levels + i, choose<V>(t > kTiny, gain, allLanes<V>(1.0)));
    }
}

} // namespace detail

/// Turns a block of levels relative to the ceiling, 0 or more, into gains 0..1, in place; 1 at silence.
/// @param levels a chunk at most; room for a whole number of vectors
template <typename V>
VELMORA_KERNEL void saturatorGains(SaturatorShape shape, double* levels, std::size_t count)
{
    constexpr double kValveDrive = 0.33;
    const auto asIs = [](const V& v) { return v; };
    const auto root = [](const V& v) { return sqrtLanes<V>(v); };
    switch (shape) {
    case SaturatorShape::Valve1:
        mapLanes<V>(levels, levels, count,
                    [](const V& t) { return 1.0 / (kValveDrive * sqrtLanes<V>(t) + 1.0); });
        break;
    case SaturatorShape::Valve2:
        mapLanes<V>(levels, levels, count, [](const V& t) { return 1.0 / (kValveDrive * t + 1.0); });
        break;
    case SaturatorShape::Tape1:
        detail::bendLevels<V>(
            levels, count, [](double t) { return std::atan(t); }, asIs);
        break;
    case SaturatorShape::Tape2:
        detail::bendLevels<V>(
            levels, count, [](double t) { return std::tanh(t); }, asIs);
        break;
    case SaturatorShape::SoftClip:
        detail::bendLevels<V>(
            levels, count, [](double t) { return std::tanh(t * t); }, root);
        break;
    case SaturatorShape::HardClip:
        detail::bendLevels<V>(
            levels, count, [](double t) { return std::pow(std::tanh(t * t * t * t), 0.25); }, asIs);
        break;
    }
}

} // namespace velmora::limiter
