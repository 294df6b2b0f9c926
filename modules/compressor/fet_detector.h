#pragma once

#include "dsp/flush.h"
#include "dsp/lanes.h"
#include "modules/compressor/envelope_step.h"
#include "modules/compressor/soft_shoulder.h"

#include <cmath>

namespace velmora {

/// One-pole steps of the FET detector, per sample.
struct FetCoefficients {
    double fetAttack = 0.0;
    double fetRelease = 0.0;
};

inline FetCoefficients fetCoefficients(const CompressorTimes& t)
{
    const double D = std::pow(1000.0, t.a) * t.sr;
    return {.fetAttack = stepOfPeriod(2.0 * D * 0.33 * 10.0),
            .fetRelease = stepOfPeriod(std::pow(100.0, t.a * 0.2 + t.R) * t.sr * 40.0)};
}

/// Loop gain for a normalised ratio: 0 at 0, 20 at 1.
inline double fetTarget(double ratioValue)
{
    return ratioValue / (1.05 - ratioValue);
}

/// Loop gain that a reset starts from, to glide to the target.
inline double fetResetRatio(double ratioValue)
{
    return std::pow(std::pow(ratioValue, 0.415), 4.0) * 1.6;
}

/// Transistor as the lower arm of a divider, with the detector behind its own gain: a feedback loop in the
/// linear domain with a dead zone. Reduces by 33.3 dB at most.
class FetDetector {
public:
    void reset() { fetEnvelope = kIdleEnvelope; }

    /// @param d filtered key, linear. @param threshold scale, unsmoothed. @param ratio loop gain of each
    /// sample.
    /// @param count samples that are there.
    /// @return gains 0.0215..1.0001, from the envelope as the sample found it
    template <typename V>
    VELMORA_KERNEL V process(const V& d, double threshold, const V& ratio, std::size_t count,
                             const FetCoefficients& c)
    {
        // The divider is a fraction of the envelope, and so is what reaches over the dead zone: key / zone.
        const V share = ratio * 0.5;
        const V above = 2.2 * share;
        const V below = 102.0 * share;
        const V key = absLanes<V>(d * 0.912 * 0.631 * 1.084 * threshold);
        const V reachAbove = key * above - kDeadZone * below;
        const V reach = key * kRestAbove - kDeadZone * kRestBelow;
        V envelope{};
        for (std::size_t i = 0; i < count; ++i) {
            envelope[i] = fetEnvelope;
            follow((reachAbove[i] * fetEnvelope + reach[i]) / (below[i] * fetEnvelope + kRestBelow), c);
        }
        return (above * envelope + kRestAbove) / (below * envelope + kRestBelow);
    }

private:
    static constexpr double kFlush = 1e-18;
    static constexpr double kDeadZone = 0.25;

    // With t = envelope * ratio / 2, t2 = 0.999 t / (1 + t) and u = 1 + 1 / (t2 + 0.001) the divider's gain
    // is 1.1 u / (u + 100) = (2.2 t + 1.1011) / (102 t + 1.101).
    static constexpr double kRestAbove = 1.1011;
    static constexpr double kRestBelow = 1.101;

    // What sticks out of the dead zone is a level with a soft shoulder, never above p itself. Branches and no
    // selects: a sample that raises the envelope keeps the loop waiting for some 100 cycles, of which the
    // divider takes 20 and the shoulder 55, one that doesn't for 12.
    VELMORA_KERNEL void follow(double p, const FetCoefficients& c)
    {
        if (p > fetEnvelope) {
            const double level = p - softShoulder(p);
            if (level > fetEnvelope) fetEnvelope += (level - fetEnvelope) * c.fetAttack;
        }
        fetEnvelope = flush(fetEnvelope - fetEnvelope * c.fetRelease, kFlush);
    }

    double fetEnvelope = kIdleEnvelope;
};

} // namespace velmora
