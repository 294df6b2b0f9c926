#pragma once

#include "dsp/flush.h"
#include "modules/compressor/envelope_step.h"

#include <algorithm>
#include <cmath>

namespace velmora {

/// One-pole steps of the opto detector, per sample.
struct OptoCoefficients {
    double levelCoefficient = 0.0;
    double optoAttack1 = 0.0;
    double optoAttack2 = 0.0;
    double optoRelease1 = 0.0;
    double optoRelease2 = 0.0;
};

inline OptoCoefficients optoCoefficients(const CompressorTimes& t)
{
    constexpr double kLevelHz = 2000.0;
    const double B = 2.0 * std::pow(10000.0, t.a) * t.sr;
    const double C = std::pow(100.0, t.a * 0.01 + t.R) * t.sr * 60.0;
    return {.levelCoefficient = stepOfFrequency(kLevelHz, t.sr),
            .optoAttack1 = stepOfPeriod(B * 0.2 * 0.15 * 0.33),
            .optoAttack2 = stepOfPeriod(B * 0.15 * 0.33),
            .optoRelease1 = stepOfPeriod(C * 0.33 * 3.0 * 0.5),
            .optoRelease2 = stepOfPeriod(C * 0.85 * 1.4 * 3.0 * 0.5)};
}

/// Exponent of the gain law for a normalised ratio: 0 at 0, about 1.378 at 1.
inline double optoTarget(double ratioValue)
{
    return std::pow(std::pow(ratioValue, 0.7) * 1.218378, 0.7) * 1.2;
}

/// Light and photo cell: feed-forward in the power domain. Two envelopes in a row whose fall slows as they
/// near the level, as a cell's does.
class OptoDetector {
public:
    void reset()
    {
        keyLevel = 0.0;
        optoEnvelope1 = kIdleEnvelope;
        optoEnvelope2 = kIdleEnvelope;
    }

    /// @param d filtered key, linear. @param thresholdScale, optoRatio for this sample.
    /// @return gain 0..1
    double process(double d, double thresholdScale, double optoRatio, const OptoCoefficients& c)
    {
        keyLevel = flush((std::fabs(d * 0.794) - keyLevel) * c.levelCoefficient + keyLevel, kLevelFlush);
        const double level = std::fabs(keyLevel * 1.4 * 1.1885) * thresholdScale + 0.01;
        const double p = level * level;
        followPower(p, c);
        followCell(c);
        return std::sqrt(std::pow(1.0 / (optoEnvelope2 + 1.0), optoRatio));
    }

private:
    static constexpr double kLevelFlush = 1e-15;
    static constexpr double kFlush = 1e-18;

    // A loud key's fall overshoots; below 0 the powers would end in NaN.
    static double settle(double envelope) { return flush(std::max(envelope, 0.0), kFlush); }

    void followPower(double p, const OptoCoefficients& c)
    {
        const double above = optoEnvelope1 - p;
        if (p > optoEnvelope1)
            optoEnvelope1 += (p - optoEnvelope1) * c.optoAttack1;
        else
            optoEnvelope1 -= above * above * c.optoRelease1;
        optoEnvelope1 = settle(optoEnvelope1);
    }

    void followCell(const OptoCoefficients& c)
    {
        if (optoEnvelope1 > optoEnvelope2)
            optoEnvelope2 += (optoEnvelope1 - optoEnvelope2) * c.optoAttack2;
        else
            optoEnvelope2 -= std::pow(optoEnvelope2 - optoEnvelope1, 1.4) * c.optoRelease2;
        optoEnvelope2 = settle(optoEnvelope2);
    }

    double keyLevel = 0.0;
    double optoEnvelope1 = kIdleEnvelope; ///< power, follows the key
    double optoEnvelope2 = kIdleEnvelope; ///< power, follows the first
};

} // namespace velmora
