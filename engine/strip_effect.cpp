#include "engine/strip_effect.h"

#include "params/catalogue.h"

namespace velmora {

namespace {

constexpr double kMilli = 0.001;
constexpr double kAttackResidue = 0.01;    // the meter has made 99 % of a step
constexpr double kReleaseResidue = 0.0625; // the meter has fallen to 1/16

// One-pole step of a meter time in milliseconds, multiplied in the order ms x rate x 0.001.
double meterRate(double milliseconds, double sampleRate, double residue)
{
    return 1.0 - std::pow(residue, 1.0 / (milliseconds * sampleRate * kMilli));
}

} // namespace

void StripEffect::writeDefaults(std::int32_t code)
{
    for (ParameterId offset = kOwnOffset; offset <= kLastOwnOffset; ++offset)
        setParameter(windowBase + static_cast<std::uint32_t>(offset), moduleDefault(code, offset));
}

void StripEffect::processThrough(const AudioRecord& in, const AudioRecord& out, std::int32_t frames)
{
    const double* left = in.left(inputPair);
    const double* right = in.right(inputPair);
    for (std::int32_t i = 0; i < frames; ++i) {
        const double l = left[i];
        const double r = right[i];
        meterInStereo(l, r);
        meterOutStereo(l, r);
        for (int pair = 0; pair < AudioRecord::kPairs; ++pair) {
            if ((outputMask >> pair & 1) == 0) continue;
            out.left(pair)[i] = l;
            out.right(pair)[i] = r;
        }
    }
}

void StripEffect::resetMeterState()
{
    inMeter = 0.0;
    outMeter = 0.0;
    inEnvL = inEnvR = outEnvL = outEnvR = 0.0;
    const double attackMs = std::pow(101.0, 0.4) - 1.0;
    const double releaseMs = std::pow(100.0, 0.4) * 100.0;
    meterAttack = attackMs > 0.05 ? meterRate(attackMs, sampleRate, kAttackResidue) : 1.0;
    meterRelease = meterRate(releaseMs, sampleRate, kReleaseResidue);
}

} // namespace velmora
