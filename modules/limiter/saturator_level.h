#pragma once

#include "dsp/flush.h"
#include "dsp/lanes.h"

#include <array>
#include <cstddef>

namespace velmora::limiter {

/// Level smoother of the saturator: three short stages, or with `soft` a single longer one.
class SaturatorLevel {
public:
    static constexpr std::size_t kStages = 3;

    /// @param smoothNorm 0..1: from the waveform itself to a fast compressor; sampleRate in Hz
    void setTime(double smoothNorm, double sampleRate);
    void reset() { satEnv = {}; }

    /// One of the stages on one sample, relative to the ceiling. Stages may work on different samples at a
    /// time, so long as each takes what the one before made of the same sample.
    /// @param stage 0..2, or 0 alone with `soft`
    template <bool soft>
    VELMORA_KERNEL double step(std::size_t stage, double level)
    {
        double& env = satEnv[stage];
        return env = flush(env + (level - env) * (soft ? satSingleRate : satCascadeRate), kFlush);
    }

private:
    static constexpr double kFlush = 1e-19;

    // Per-sample shares.
    double satSingleRate = 1.0;
    double satCascadeRate = 1.0;

    std::array<double, kStages> satEnv{};
};

} // namespace velmora::limiter
