#pragma once

namespace velmora::limiter {

/// Level smoother of the saturator: three short stages, or with `soft` a single longer one.
class SaturatorLevel {
public:
    /// @param smoothNorm 0..1: from the waveform itself to a fast compressor; sampleRate in Hz
    void setTime(double smoothNorm, double sampleRate);
    void reset() { satEnv1 = satEnv2 = satEnv3 = 0.0; }

    /// Smooths the rectified detector signal.
    /// @param ceilingInverse 1 / ceiling, linear; levels come out relative to the ceiling
    void process(const double* detect, double* levels, int count, double ceilingInverse, bool soft);

private:
    double followSingle(double level);
    double followCascade(double level);

    // Per-sample shares.
    double satSingleRate = 1.0;
    double satCascadeRate = 1.0;

    double satEnv1 = 0.0;
    double satEnv2 = 0.0;
    double satEnv3 = 0.0;
};

} // namespace velmora::limiter
