#pragma once

namespace velmora::limiter {

/// Level detector and gain computer of the VCA-style limiter. It works on log10 of the level relative to the
/// ceiling: a fast follower that relaxes to a floor, and a peak hold behind it that lets go slowly.
class VcaDetector {
public:
    /// Both controls act on the slow fall; the one set last rules it.
    /// @param attackNorm, releaseNorm 0..1; sampleRate in Hz. @return the attack in ms, 0.07..70
    double setAttack(double attackNorm, double releaseNorm, double sampleRate);
    /// @return the release in ms, 28..2800
    double setRelease(double attackNorm, double releaseNorm, double sampleRate);

    /// Puts both followers at a level.
    void restart(double level) { vcaFast = vcaSlow = level; }

    /// Works out a gain for each detector sample.
    /// @param ceilingInverse 1 / ceiling, linear
    void process(const double* detect, double* gains, int count, double ceilingInverse, bool soft);

private:
    void follow(double logLevel, double floorLevel);

    // Per-sample shares.
    double vcaAttackRate = 1.0;
    double vcaFallRate = 1.0;
    double vcaSlowRate = 1.0;

    // log10 of the level relative to the ceiling.
    double vcaFast = 0.0;
    double vcaSlow = 0.0;
};

} // namespace velmora::limiter
