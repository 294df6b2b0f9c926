#pragma once

#include "dsp/lanes.h"
#include "dsp/vector_math.h"
#include "modules/limiter/exact_gain.h"

#include <algorithm>
#include <array>
#include <cmath>
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
    VELMORA_KERNEL double follow(double logLevel, double error, double magnitude, double floorLevel);
    static VELMORA_KERNEL double power(double slow, bool soft);

    // log10 of the level relative to the ceiling.
    double vcaFast = 0.0;
    double vcaSlow = 0.0;
};

// Where a follower moves one way only, the higher of both ends is the one that applies. A NaN in the level
// leaves the followers as they are. The logarithm may be off by its error: nearly always both ends of that
// lead to the same level, and else libm decides.
inline double VcaDetector::follow(double logLevel, double error, double magnitude, double floorLevel)
{
    vcaFast += (floorLevel - vcaFast) * rates.fall;
    const auto risen = [this](double level) VELMORA_KERNEL_LAMBDA {
        return std::max(vcaFast, vcaFast + (level - vcaFast) * rates.attack);
    };
    if (risen(logLevel - error) == risen(logLevel + error)) [[likely]]
        vcaFast = risen(logLevel);
    else
        vcaFast = risen(std::log10(magnitude));
    vcaSlow = std::max(vcaSlow + (vcaFast - vcaSlow) * rates.slow, vcaFast);
    return vcaSlow;
}

// Of levels that surely lie below either knee, and of what is no number, 0 tells enough.
inline double VcaDetector::power(double slow, bool soft)
{
    const double belowKnee = soft ? -6.0 : -1e-6;
    return slow >= belowKnee ? std::pow(10.0, slow) : 0.0;
}

template <typename V>
inline void VcaDetector::process(const double* detect, double* gains, std::size_t count,
                                 double ceilingInverse, bool soft)
{
    constexpr double kHardFloor = -0.800000012; // -16 dB
    constexpr double kSoftFloor = -1.299999952; // -26 dB
    constexpr double kLogGuard = 0.0001;        // -80 dB
    constexpr double kLogError = 0x1p-48;       // the lanes' and libm's, as a share of the result
    constexpr double kGainGuard = 1e-6;
    constexpr double kSoftMinimum = 1e-5;

    std::array<double, kChunk> magnitudes{};
    mapLanes<V>(detect, magnitudes.data(), count, [=](const V& x) VELMORA_KERNEL_LAMBDA {
        return absLanes<V>(x) * ceilingInverse + kLogGuard;
    });
    mapLanes<V>(magnitudes.data(), gains, count,
                [](const V& x) VELMORA_KERNEL_LAMBDA { return log10Lanes<V>(x); });
    VcaDetector local = *this; // the state stays in registers: stores to gains can't alias it
    const double floorLevel = soft ? kSoftFloor : kHardFloor;
    for (std::size_t i = 0; i < count; ++i)
        gains[i] = local.follow(gains[i], gains[i] * kLogError, magnitudes[i], floorLevel);
    *this = local;

    for (std::size_t i = 0; i < count; ++i) gains[i] = power(gains[i], soft);
    if (soft) {
        softGains<V>(gains, count, kSoftMinimum);
    } else {
        mapLanes<V>(gains, gains, count,
                    [](const V& level) VELMORA_KERNEL_LAMBDA { return level + kGainGuard; });
        hardGains<V>(gains, count);
    }
}

} // namespace velmora::limiter
