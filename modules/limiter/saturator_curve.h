#pragma once

#include <cstdint>

namespace velmora::limiter {

/// Gain curves of the saturator, from the smoothest and lightest to the sharpest.
enum class SaturatorShape : std::int32_t { Valve1, Valve2, Tape1, Tape2, SoftClip, HardClip };
inline constexpr std::int32_t kLastSaturatorShape = static_cast<std::int32_t>(SaturatorShape::HardClip);

/// Turns a block of levels relative to the ceiling, 0 or more, into gains 0..1, in place; 1 at silence.
void saturatorGains(SaturatorShape shape, double* levels, int count);

} // namespace velmora::limiter
