#pragma once

#include "dsp/flush.h"
#include "dsp/lanes.h"
#include "modules/compressor/envelope_step.h"
#include "modules/compressor/power_1_4.h"

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
///
/// A key some thousand times above the threshold makes the falls step far beyond their aim, and the envelopes
/// wander: there each sample can double a difference of the last place, until it is heard. So all powers are
/// the library's to the last place, and the order of operations stays as it is, in every compressor that may
/// stand before.
class OptoDetector {
public:
    void reset()
    {
        keyLevel = 0.0;
        optoEnvelope1 = kIdleEnvelope;
        optoEnvelope2 = kIdleEnvelope;
    }

    /// @param d filtered key, linear. @param threshold scale, @param ratio exponent of each sample.
    /// @param count samples that are there.
    /// @return gains 0..1
    template <typename V>
    VELMORA_KERNEL V process(const V& d, const V& threshold, const V& ratio, std::size_t count,
                             const OptoCoefficients& c)
    {
        const V magnitude = absLanes<V>(d * 0.794);
        V passed{};
        // All of a sample at once: the short recursions run ahead while the cell's long one is waited for.
        for (std::size_t i = 0; i < count; ++i) {
            keyLevel = flush((magnitude[i] - keyLevel) * c.levelCoefficient + keyLevel, kLevelFlush);
            const double level = std::fabs(keyLevel * 1.4 * 1.1885) * threshold[i] + 0.01;
            followPower(level * level, c);
            followCell(c);
            passed[i] = optoEnvelope2;
        }
        passed = 1.0 / (passed + 1.0);
        for (std::size_t i = 0; i < count; ++i) passed[i] = std::pow(passed[i], ratio[i]);
        return sqrtLanes<V>(passed);
    }

private:
    static constexpr double kLevelFlush = 1e-15;
    static constexpr double kFlush = 1e-18;

    // A loud key's fall overshoots; below 0 the powers would end in NaN.
    static VELMORA_KERNEL double settle(double envelope)
    {
        return flush(envelope < 0.0 ? 0.0 : envelope, kFlush);
    }

    VELMORA_KERNEL void followPower(double p, const OptoCoefficients& c)
    {
        const double above = optoEnvelope1 - p;
        const double risen = optoEnvelope1 + (p - optoEnvelope1) * c.optoAttack1;
        const double fallen = optoEnvelope1 - above * above * c.optoRelease1;
        optoEnvelope1 = settle(p > optoEnvelope1 ? risen : fallen);
    }

    // A branch and no select: a fall keeps the loop waiting for some 60 cycles, of which the power takes 45,
    // a rise for 17.
    VELMORA_KERNEL void followCell(const OptoCoefficients& c)
    {
        if (optoEnvelope1 > optoEnvelope2)
            optoEnvelope2 += (optoEnvelope1 - optoEnvelope2) * c.optoAttack2;
        else
            optoEnvelope2 = fallenCell(c.optoRelease2);
        optoEnvelope2 = settle(optoEnvelope2);
    }

    // The short power suffices where either end of its error leads to the same cell, which is nearly always,
    // as a step is a small part of the cell; otherwise, and of what is no number, the library decides.
    VELMORA_KERNEL double fallenCell(double share) const
    {
        const double above = optoEnvelope2 - optoEnvelope1;
        const double step = sharedPower1_4(above, share);
        const double error = step * 0x1p-48;
        const double fallen = optoEnvelope2 - (step + error);
        if (fallen == optoEnvelope2 - (step - error)) [[likely]]
            return fallen;
        return optoEnvelope2 - std::pow(above, 1.4) * share;
    }

    double keyLevel = 0.0;
    double optoEnvelope1 = kIdleEnvelope; ///< power, follows the key
    double optoEnvelope2 = kIdleEnvelope; ///< power, follows the first
};

} // namespace velmora
