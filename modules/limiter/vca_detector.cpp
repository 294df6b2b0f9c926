#include "modules/limiter/vca_detector.h"

#include "dsp/one_pole.h"
#include "params/laws/limiter_laws.h"

#include <cmath>

namespace velmora::limiter {

namespace {

constexpr double kReferenceRate = 44100.0;
constexpr double kReferenceAttackMs = 3.2;
constexpr double kReferenceExponent = 0.01002286817603043; // 1 / samples of the reference attack

} // namespace

void VcaRates::setAttack(double attackNorm, double releaseNorm, double sampleRate)
{
    const double ms = std::clamp(attackMs(attackNorm), 0.1, 100.0) * 0.7;
    attack = (1.0 - std::pow(kRateResidue, kReferenceExponent)) * (kReferenceAttackMs / ms) *
             (kReferenceRate / sampleRate);
    slow = onePoleRate((ms + releaseMs(releaseNorm)) * 0.25 * 0.001, sampleRate);
}

void VcaRates::setRelease(double attackNorm, double releaseNorm, double sampleRate)
{
    const double ms = std::clamp(releaseMs(releaseNorm), 10.0, 1000.0) * 2.8;
    fall = onePoleRate(ms * 1.4 * 0.001, sampleRate);
    slow = onePoleRate((0.25 * ms + attackMs(attackNorm)) * 0.001, sampleRate);
}

} // namespace velmora::limiter
