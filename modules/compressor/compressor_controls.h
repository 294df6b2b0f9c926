#pragma once

#include "dsp/flush.h"

namespace velmora {

/// Controls that glide per sample, with their targets.
struct CompressorControls {
    double thresholdScale = 1.0; ///< linear, multiplies the detectors' input
    double thresholdScaleCurrent = 1.0;
    double makeupGain = 1.0; ///< linear
    double makeupGainCurrent = 1.0;
    double fetTarget = 0.0;
    double fetRatio = 0.0;
    double optoTarget = 0.0;
    double optoRatio = 0.0;
    double mix = 1.0; ///< share of the compressed signal, 0..1
    double mixCurrent = 1.0;

    /// One sample towards the targets. @param s one-pole step
    void advance(double s)
    {
        glide(thresholdScaleCurrent, thresholdScale, s);
        glide(makeupGainCurrent, makeupGain, s);
        glide(fetRatio, fetTarget, s);
        glide(optoRatio, optoTarget, s);
        glide(mixCurrent, mix, s);
    }

private:
    static constexpr double kFlush = 1e-16;

    static void glide(double& current, double target, double s)
    {
        current = flush((target - current) * s + current, kFlush);
    }
};

} // namespace velmora
