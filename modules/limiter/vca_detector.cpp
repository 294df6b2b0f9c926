#include "modules/limiter/vca_detector.h"

#include "dsp/one_pole.h"
#include "params/laws/limiter_laws.h"

#include <algorithm>
#include <cmath>

namespace velmora::limiter {

namespace {

constexpr double kReferenceRate = 44100.0;
constexpr double kReferenceAttackMs = 3.2;
constexpr double kReferenceExponent = 0.01002286817603043; // 1 / samples of the reference attack

constexpr double kHardFloor = -0.800000012; // -16 dB
constexpr double kSoftFloor = -1.299999952; // -26 dB
constexpr double kLogGuard = 0.0001;        // -80 dB
constexpr double kGainGuard = 1e-6;
constexpr double kSoftMinimum = 1e-5;

double gainAt(double level, bool soft)
{
    if (soft) return level > kSoftMinimum ? std::tanh(level) / level : 1.0;
    const double t = level + kGainGuard;
    return t >= 1.0 ? 1.0 / t : 1.0;
}

} // namespace

double VcaDetector::setAttack(double attackNorm, double releaseNorm, double sampleRate)
{
    const double ms = std::clamp(attackMs(attackNorm), 0.1, 100.0) * 0.7;
    vcaAttackRate = (1.0 - std::pow(kRateResidue, kReferenceExponent)) * (kReferenceAttackMs / ms) *
                    (kReferenceRate / sampleRate);
    vcaSlowRate = onePoleRate((ms + releaseMs(releaseNorm)) * 0.25 * 0.001, sampleRate);
    return ms;
}

double VcaDetector::setRelease(double attackNorm, double releaseNorm, double sampleRate)
{
    const double ms = std::clamp(releaseMs(releaseNorm), 10.0, 1000.0) * 2.8;
    vcaFallRate = onePoleRate(ms * 1.4 * 0.001, sampleRate);
    vcaSlowRate = onePoleRate((0.25 * ms + attackMs(attackNorm)) * 0.001, sampleRate);
    return ms;
}

inline void VcaDetector::follow(double logLevel, double floorLevel)
{
    vcaFast += (floorLevel - vcaFast) * vcaFallRate;
    if (logLevel > vcaFast) vcaFast += (logLevel - vcaFast) * vcaAttackRate;
    if (vcaFast > vcaSlow)
        vcaSlow = vcaFast;
    else
        vcaSlow += (vcaFast - vcaSlow) * vcaSlowRate;
}

void VcaDetector::process(const double* detect, double* gains, int count, double ceilingInverse, bool soft)
{
    const double floorLevel = soft ? kSoftFloor : kHardFloor;
    VcaDetector local = *this; // the state stays in registers: stores to gains can't alias it
    for (int i = 0; i < count; ++i) {
        local.follow(std::log10(std::fabs(detect[i]) * ceilingInverse + kLogGuard), floorLevel);
        gains[i] = gainAt(std::pow(10.0, local.vcaSlow), soft);
    }
    *this = local;
}

} // namespace velmora::limiter
