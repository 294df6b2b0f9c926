#include "modules/limiter/strip_effect_limiter.h"

namespace velmora {

using namespace limiter;

StripEffectLimiter::StripEffectLimiter(std::uint32_t windowBaseId, std::uint32_t meterBaseId,
                                       std::uint32_t localBaseId)
    : StripEffectLimiter_BrickWall_Saturator(windowBaseId, meterBaseId, localBaseId)
{
    StripEffectLimiter_BrickWall_Saturator::initFilters();
    StripEffectLimiter_BrickWall_Saturator::setSampleRate(kMinSampleRate);
    StripEffectLimiter_BrickWall_Saturator::reset();
}

// Nothing in this mono program calls it: the pair passes through, where a variant runs.
void StripEffectLimiter::processStereo(const AudioRecord& in, const AudioRecord& out, std::int32_t frames)
{
    if (limiterActive == 0 || type == kThrough || limits(type)) processThrough(in, out, frames);
}

void StripEffectLimiter::processMono(const AudioRecord& in, const AudioRecord& out, std::int32_t frames)
{
    if (limiterActive == 0) {
        processThrough(in, out, frames);
        return;
    }
    switch (type) {
    case kThrough:
        processThrough(in, out, frames);
        break;
    case kOpto:
        processOpto(in, out, frames);
        break;
    case kVca:
        processVca(in, out, frames);
        break;
    case kBrickWall:
        processBrickWall(in, out, frames);
        break;
    case kSaturator:
        processSaturator(in, out, frames);
        break;
    default:
        break;
    }
}

} // namespace velmora
