#pragma once

#include "dsp/flush.h"
#include "dsp/lanes.h"
#include "dsp/vector_math.h"
#include "modules/compressor/envelope_step.h"

#include <cmath>

namespace velmora {

/// One-pole steps of the VCA detector, per sample, and the slope of its law.
struct VcaCoefficients {
    double vcaAttack = 0.0;
    double vcaRelease = 0.0;
    double vcaRatio = 0.0; ///< share of the level above threshold that is taken away, 0..1
};

/// @param ratioValue normalised 0..1; the slope is exactly that of the displayed ratio.
inline VcaCoefficients vcaCoefficients(const CompressorTimes& t, double ratioValue)
{
    const double D = std::pow(1000.0, t.a) * t.sr;
    return {.vcaAttack = stepOfPeriod(D * 0.33),
            .vcaRelease = stepOfPeriod(std::pow(100.0, t.a * 0.1 + t.R) * t.sr * 80.0),
            .vcaRatio = std::pow(ratioValue, 0.415)};
}

/// Feed-forward in the logarithmic domain, in decades, with a soft knee.
class VcaDetector {
public:
    void reset() { vcaEnvelope = kIdleEnvelope; }

    /// @param d filtered key, linear. @param threshold scale of each sample. @param count samples that are
    /// there.
    /// @return gains 0..1
    template <typename V>
    VELMORA_KERNEL V process(const V& d, const V& threshold, std::size_t count, const VcaCoefficients& c)
    {
        const V level = absLanes<V>(d * 2.6 * 1.122 * 0.841 * 1.1) * threshold + 0.01;
        const Decades<V> decades = softKnees<V>(level);
        V gains{};
        for (std::size_t i = 0; i < count; ++i) {
            follow(decades.low[i], decades.high[i], level[i], c);
            gains[i] = vcaEnvelope;
        }
        gains = -gains * c.vcaRatio;
        for (std::size_t i = 0; i < count; ++i) gains[i] = std::pow(10.0, gains[i]);
        return gains;
    }

private:
    static constexpr double kFlush = 1e-18;

    /// Decades above threshold, with the ends of their error.
    template <typename V>
    struct Decades {
        V low, high;
    };

    // Below threshold there is nothing to take a logarithm of.
    static double softKnee(double level)
    {
        if (level <= 1.0) return 0.0;
        const double P = std::log10(level);
        return P - std::tanh(P * 8.0) * 0.125;
    }

    template <typename V>
    static VELMORA_KERNEL Decades<V> softKnees(const V& level)
    {
        const V P = log10Lanes<V>(level);
        const V bent = P - tanhLanes<V>(P * 8.0) * 0.125;
        const V error = P * 0x1p-48; // the lanes' and the library's
        const MaskOf<V> below = level <= 1.0;
        return {choose<V>(below, V{}, bent - error), choose<V>(below, V{}, bent + error)};
    }

    // Where both ends lead to the same envelope, it is that of the library's functions too, which have the
    // word otherwise, and of what is no number.
    VELMORA_KERNEL void follow(double low, double high, double level, const VcaCoefficients& c)
    {
        const double envelope = next(low, c);
        vcaEnvelope = envelope == next(high, c) ? envelope : next(softKnee(level), c);
    }

    VELMORA_KERNEL double next(double p, const VcaCoefficients& c) const
    {
        const double share = p > vcaEnvelope ? c.vcaAttack : c.vcaRelease;
        return flush(vcaEnvelope + (p - vcaEnvelope) * share, kFlush);
    }

    double vcaEnvelope = kIdleEnvelope;
};

} // namespace velmora
