#pragma once

#include "dsp/flush.h"
#include "params/laws/special_laws.h"

#include <cmath>

namespace velmora {

/// One-pole step of the dynamic EQ's frequency, Q and indicator, per sample.
inline double marlowSmoothingStep(double sampleRate)
{
    return 1.0 - std::exp(-6.283 / (0.05 * sampleRate));
}

/// Frequency and Qs of the dynamic band, smoothed so that a move doesn't click.
struct GlidedBand {
    static constexpr double kFlush = 1e-18;
    static constexpr double kMiddle = 0.5; ///< where the controls start

    double freqTarget = marlow::frequencyHz(kMiddle); ///< Hz
    double freqNow = freqTarget;
    double qPeakTarget = marlow::peakQ(kMiddle);
    double qPeakNow = qPeakTarget;
    double qShelfTarget = marlow::shelfQ(kMiddle);
    double qShelfNow = qShelfTarget;

    void land()
    {
        freqNow = freqTarget;
        qPeakNow = qPeakTarget;
        qShelfNow = qShelfTarget;
    }

    /// @param k step of one sample, 0..1.
    void advance(double k)
    {
        freqNow = flush(freqNow + (freqTarget - freqNow) * k, kFlush);
        qPeakNow = flush(qPeakNow + (qPeakTarget - qPeakNow) * k, kFlush);
        qShelfNow = flush(qShelfNow + (qShelfTarget - qShelfNow) * k, kFlush);
    }
};

} // namespace velmora
