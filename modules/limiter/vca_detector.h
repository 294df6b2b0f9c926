#pragma once

#include "dsp/lanes.h"
#include "dsp/vector_math.h"

#include <algorithm>
#include <cstddef>

namespace velmora::limiter {

/// Per-sample shares of the VCA's followers. Both controls act on the slow fall, each in a way of its own.
/// Rates of the followers are well below 1, but for the attack.
struct VcaRates {
    double attack = 0.0;
    double fall = 0.0;
    double slow = 0.0;

    /// Attack, and the slow fall by it. @param attackNorm, releaseNorm 0..1; sampleRate in Hz
    void setAttack(double attackNorm, double releaseNorm, double sampleRate);
    /// Fall, and the slow fall by the release.
    void setRelease(double attackNorm, double releaseNorm, double sampleRate);
};

/// Level detector and gain computer of the VCA-style limiter. It works on log10 of the level relative to the
/// ceiling: a fast follower that relaxes to a floor, and a peak hold behind it that lets go slowly.
class VcaDetector {
public:
    VcaRates rates;

    /// Puts both followers at a level.
    void restart(double level) { vcaFast = vcaSlow = level; }

    /// Works out a gain for each detector sample.
    /// @param gains room for a whole number of vectors
    /// @param ceilingInverse 1 / ceiling, linear
    template <typename V>
    VELMORA_KERNEL void process(const double* detect, double* gains, std::size_t count, double ceilingInverse,
                                bool soft);

private:
    VELMORA_KERNEL double follow(double logLevel, double floorLevel);
    template <typename V>
    static VELMORA_KERNEL V gainAt(const V& level, bool soft);

    // log10 of the level relative to the ceiling.
    double vcaFast = 0.0;
    double vcaSlow = 0.0;
};

// Where a follower moves one way only, the higher of both ends is the one that applies. A NaN in the level
// leaves the followers as they are.
inline double VcaDetector::follow(double logLevel, double floorLevel)
{
    vcaFast += (floorLevel - vcaFast) * rates.fall;
    vcaFast = std::max(vcaFast, vcaFast + (logLevel - vcaFast) * rates.attack);
    vcaSlow = std::max(vcaSlow + (vcaFast - vcaSlow) * rates.slow, vcaFast);
    return vcaSlow;
}

template <typename V>
inline V VcaDetector::gainAt(const V& level, bool soft)
{
    constexpr double kGainGuard = 1e-6;
    constexpr double kSoftMinimum = 1e-5;
    const V one = allLanes<V>(1.0);
    if (soft) return choose<V>(level > kSoftMinimum, tanhLanes<V>(level) / level, one);
    const V t = level + kGainGuard;
    return choose<V>(t >= 1.0, 1.0 / t, one);
}

template <typename V>
inline void VcaDetector::process(const double* detect, double* gains, std::size_t count,
                                 double ceilingInverse, bool soft)
{
    constexpr double kHardFloor = -0.800000012; // -16 dB
    constexpr double kSoftFloor = -1.299999952; // -26 dB
    constexpr double kLogGuard = 0.0001;        // -80 dB

    mapLanes<V>(detect, gains, count,
                [=](const V& x) { return log10Lanes<V>(absLanes(x) * ceilingInverse + kLogGuard); });
    VcaDetector local = *this; // the state stays in registers: stores to gains can't alias it
    const double floorLevel = soft ? kSoftFloor : kHardFloor;
    for (std::size_t i = 0; i < count; ++i) gains[i] = local.follow(gains[i], floorLevel);
    *this = local;
    mapLanes<V>(gains, gains, count, [=](const V& slow) { return gainAt<V>(exp10Lanes<V>(slow), soft); });
}

} // namespace velmora::limiter
