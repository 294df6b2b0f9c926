#pragma once

#include "dsp/flush.h"
#include "dsp/lanes.h"
#include "modules/compressor/envelope_step.h"

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
        const V key = d * 0.912 * 0.631 * 1.084;
        V gains{};
        for (std::size_t i = 0; i < count; ++i) {
            gains[i] = dividerGain(fetEnvelope * ratio[i] * 0.5);
            follow(std::fabs(key[i] * gains[i] * threshold) - kDeadZone, c);
        }
        return gains;
    }

private:
    static constexpr double kFlush = 1e-18;
    static constexpr double kDeadZone = 0.25;

    static VELMORA_KERNEL double dividerGain(double t)
    {
        const double t2 = t * 0.999 / (t + 1.0);
        const double u = 1.0 / (1.0 - (0.999 - t2)) + 1.0;
        return u * 1.1 / (u + 100.0);
    }

    // What sticks out of the dead zone, p, counts with a soft shoulder that never lifts it: samples that
    // cannot raise the envelope are spared the tangent.
    VELMORA_KERNEL void follow(double p, const FetCoefficients& c)
    {
        if (p > fetEnvelope) {
            const double level = p - std::tanh(p * 4.0) * 0.25;
            if (level > fetEnvelope) fetEnvelope += (level - fetEnvelope) * c.fetAttack;
        }
        fetEnvelope = flush(fetEnvelope - fetEnvelope * c.fetRelease, kFlush);
    }

    double fetEnvelope = kIdleEnvelope;
};

} // namespace velmora
