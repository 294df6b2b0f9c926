#include "modules/through/strip_effect_through.h"

#include <algorithm>

namespace velmora {

StripEffectThrough::StripEffectThrough(std::uint32_t windowBaseId, std::uint32_t meterBaseId,
                                       std::uint32_t localBaseId)
    : StripEffect(windowBaseId, meterBaseId, localBaseId)
{
    StripEffectThrough::reset();
}

void StripEffectThrough::setSampleRate(double hz)
{
    sampleRate = std::clamp(hz, kMinSampleRate, kMaxSampleRate);
}

void StripEffectThrough::setParameter(std::uint32_t id, double value)
{
    if (relative(id) == kTypeOffset) type = decodeType(value);
}

void StripEffectThrough::processStereo(const AudioRecord& in, const AudioRecord& out, std::int32_t frames)
{
    processThrough(in, out, frames);
}

void StripEffectThrough::processMono(const AudioRecord& in, const AudioRecord& out, std::int32_t frames)
{
    processThrough(in, out, frames);
}

void StripEffectThrough::getMeter(std::uint32_t id, double* out)
{
    answerLevelMeters(id, out);
}

} // namespace velmora
