#pragma once

#include "params/parameter_ids.h"

#include <cstdint>

namespace velmora::limiter {

/// Samples that are glided, detected and shaped together.
inline constexpr int kChunk = 64;

/// Variants of the module, as its Type parameter decodes them.
inline constexpr std::int32_t kThrough = 0;
inline constexpr std::int32_t kOpto = 1;
inline constexpr std::int32_t kVca = 2;
inline constexpr std::int32_t kBrickWall = 7;
inline constexpr std::int32_t kSaturator = 12;

/// @return whether a variant processes audio; pass-through and undefined variants don't.
constexpr bool limits(std::int32_t type)
{
    return type == kOpto || type == kVca || type == kBrickWall || type == kSaturator;
}

/// Type code by which the catalogue knows this kind's defaults.
inline constexpr std::int32_t kDefaultsCode = 81;

/// Offsets of the module's own parameters in its window.
inline constexpr ParameterId kAttackOffset = 16;
inline constexpr ParameterId kReleaseOffset = 17;
inline constexpr ParameterId kCeilingOffset = 18;
inline constexpr ParameterId kOutputOffset = 19;
inline constexpr ParameterId kHighPassOffset = 20;
inline constexpr ParameterId kLinkOffset = 21;
inline constexpr ParameterId kSoftOffset = 22;
inline constexpr ParameterId kModeOffset = 25;
inline constexpr ParameterId kSmoothOffset = 28;
inline constexpr ParameterId kShapeOffset = 29;

/// Offset of the gain reduction behind the two level meters.
inline constexpr std::uint32_t kReductionMeter = 2;

} // namespace velmora::limiter
