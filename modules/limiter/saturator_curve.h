#pragma once

#include <cstdint>

namespace velmora::limiter {

/// Gain curves of the saturator, from the smoothest and lightest to the sharpest.
enum class SaturatorShape : std::int32_t { Valve1, Valve2, Tape1, Tape2, SoftClip, HardClip };
inline constexpr std::int32_t kLastSaturatorShape = static_cast<std::int32_t>(SaturatorShape::HardClip);

/// @param level relative to the ceiling, linear, 0 or more. @return gain 0..1, 1 at silence
double saturatorGain(SaturatorShape shape, double level);

/// Turns a block of levels into gains, in place.
void saturatorGains(SaturatorShape shape, double* levels, int count);

} // namespace velmora::limiter
