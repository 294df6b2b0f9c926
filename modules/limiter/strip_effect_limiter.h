#pragma once

#include "modules/limiter/strip_effect_limiter_brickwall_saturator.h"

namespace velmora {

/// The limiter module: chooses the variant by its type on each call. A type that names no variant leaves the
/// outputs as they are.
class StripEffectLimiter final : public StripEffectLimiter_BrickWall_Saturator {
public:
    StripEffectLimiter(std::uint32_t windowBaseId, std::uint32_t meterBaseId, std::uint32_t localBaseId);

    void processStereo(const AudioRecord& in, const AudioRecord& out, std::int32_t frames) override;
    void processMono(const AudioRecord& in, const AudioRecord& out, std::int32_t frames) override;
};

} // namespace velmora
