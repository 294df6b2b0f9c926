#pragma once

#include "dsp/flush.h"
#include "dsp/one_pole.h"

#include <cmath>

namespace velmora::limiter {

/// A linear gain that moves towards its target once per chunk.
class GlidedGain {
public:
    /// Share of the way made in a chunk, whatever its length. @param sampleRate Hz
    static double chunkRate(double sampleRate)
    {
        return 1.0 - std::pow(kRateResidue, kStepSamples / sampleRate);
    }

    void setTarget(double gain) { target_ = gain; }
    void snap() { gain_ = target_; }
    void step(double rate)
    {
        gain_ += (target_ - gain_) * rate;
        gain_ = flush(gain_, kFlush);
    }
    double value() const { return gain_; }

private:
    static constexpr double kStepSamples = 320.0;
    static constexpr double kFlush = 1e-15;

    double gain_ = 1.0;
    double target_ = 1.0;
};

} // namespace velmora::limiter
