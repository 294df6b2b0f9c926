#pragma once

#include "dsp/flush.h"

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

    double freqTarget = 632.455532033676; ///< Hz
    double freqNow = freqTarget;
    double qPeakTarget = 1.0;
    double qPeakNow = qPeakTarget;
    double qShelfTarget = 0.7;
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
