#pragma once

namespace velmora::limiter {

/// Level detector and gain computer of the optical-style limiter: a held peak lights a cell that follows fast
/// and lets go ever more slowly; a corner filter rounds what the cell does to the gain.
class OptoDetector {
public:
    /// Rates of the corner filter. @param sampleRate Hz
    void setSampleRate(double sampleRate);
    /// @param norm 0..1. @return the attack in ms, 0.132..1320
    double setAttack(double norm, double sampleRate);
    /// @param norm 0..1. @return the release in ms, 3.5..3500
    double setRelease(double norm, double sampleRate);

    /// Dark and at rest.
    void reset();
    /// Puts the cell and what follows it at a level; the peak and the hold stay.
    void restart(double level) { optoCell = optoLevel = level; }

    /// Works out a gain for each detector sample.
    /// @param ceilingInverse 1 / ceiling, linear
    void process(const double* detect, double* gains, int count, double ceilingInverse, bool soft);

private:
    void followPeak(double magnitude);
    void moveCell(double level, bool soft);
    double roundCorners();

    // Per-sample shares.
    double optoAttackRate = 1.0;
    double optoHoldRate = 1.0;
    double optoReleaseRate = 1.0;
    double cornerRise = 1.0;
    double cornerFall = 1.0;

    // Level relative to the ceiling, but for the peak, which is absolute.
    double optoPeak = 0.0;
    double optoCell = 0.0;
    double optoHold = 0.0;
    double optoLevel = 0.0;
};

} // namespace velmora::limiter
