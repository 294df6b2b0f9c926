#include "engine/strip_effect.h"

#include "params/catalogue.h"

#include <algorithm>

namespace velmora {

void StripEffect::writeDefaults(std::int32_t code)
{
    for (ParameterId offset = kOwnOffset; offset <= kLastOwnOffset; ++offset)
        setParameter(windowBase + static_cast<std::uint32_t>(offset), moduleDefault(code, offset));
}

void StripEffect::processThrough(const AudioRecord& in, const AudioRecord& out, std::int32_t frames)
{
    if (frames <= 0) return;
    const double* left = in.left(inputPair);
    const double* right = in.right(inputPair);
    const bool oneMeter = inMeter.standsWith(outMeter);
    meterInBlock(left, right, frames);
    if (oneMeter)
        outMeter.follow(inMeter);
    else
        meterOutBlock(left, right, frames);
    for (int pair = 0; outputMask >> pair != 0 && pair < AudioRecord::kPairs; ++pair) {
        if ((outputMask >> pair & 1) == 0) continue;
        if (out.left(pair) != left) std::copy_n(left, frames, out.left(pair));
        if (out.right(pair) != right) std::copy_n(right, frames, out.right(pair));
    }
}

void StripEffect::resetMeterState()
{
    inMeter.reset();
    outMeter.reset();
    if (meteredSampleRate == sampleRate) return;
    meterRates = levelMeterRates(sampleRate);
    meteredSampleRate = sampleRate;
}

} // namespace velmora
