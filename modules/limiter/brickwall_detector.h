#pragma once

#include <cstdint>

namespace velmora::limiter {

/// Level detector and gain computer of the brick-wall limiter. The peak of the present sample goes into its
/// own gain; the modes differ in how the gain comes back.
class BrickWallDetector {
public:
    /// Modes 0..2 exist.
    static constexpr std::int32_t kLastMode = 2;

    /// @param releaseMs 10..1000; sampleRate in Hz
    void setRelease(double releaseMs, double sampleRate);

    /// Puts every stage at a level.
    void restart(double level) { brickPeak = brickEnv1 = brickEnv2 = brickEnv3 = level; }

    /// Works out a gain for each detector sample.
    /// @param mode 0..kLastMode; ceilingInverse 1 / ceiling, linear
    void process(const double* detect, double* gains, int count, double ceilingInverse, std::int32_t mode,
                 bool soft);

private:
    template <typename Follow>
    void run(const double* detect, double* gains, int count, double ceilingInverse, bool soft, Follow follow);

    void followSquare(double level);  // mode 0
    void followSingle(double level);  // mode 1
    void followCascade(double level); // mode 2
    void relaxPeak(double level, double rate);

    // Per-sample shares of the falls.
    double fastFall = 1.0;
    double fall1 = 1.0;
    double fall2 = 1.0;
    double fall3 = 1.0;

    // Level relative to the ceiling.
    double brickPeak = 0.0;
    double brickEnv1 = 0.0;
    double brickEnv2 = 0.0;
    double brickEnv3 = 0.0;
};

} // namespace velmora::limiter
