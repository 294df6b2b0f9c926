#pragma once

#include "dsp/flush.h"
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

    /// @param d filtered key, linear. @param thresholdScale for this sample.
    /// @return gain 0..1
    double process(double d, double thresholdScale, const VcaCoefficients& c)
    {
        const double level = std::fabs(d * 2.6 * 1.122 * 0.841 * 1.1) * thresholdScale + 0.01;
        const double p = softKnee(level);
        if (p > vcaEnvelope)
            vcaEnvelope += (p - vcaEnvelope) * c.vcaAttack;
        else
            vcaEnvelope -= (vcaEnvelope - p) * c.vcaRelease;
        vcaEnvelope = flush(vcaEnvelope, kFlush);
        return std::pow(10.0, -vcaEnvelope * c.vcaRatio);
    }

private:
    static constexpr double kFlush = 1e-18;

    // Decades above threshold; below it there is nothing to take a logarithm of.
    static double softKnee(double level)
    {
        if (level <= 1.0) return 0.0;
        const double P = std::log10(level);
        return P - std::tanh(P * 8.0) * 0.125;
    }

    double vcaEnvelope = kIdleEnvelope;
};

} // namespace velmora
