#pragma once

#include "dsp/lanes.h"
#include "modules/limiter/exact_gain.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace velmora::limiter {

/// Per-sample shares of the brick wall's falls, well below 1.
struct BrickWallRates {
    double fastFall = 0.0;
    double fall1 = 0.0; ///< square law
    double fall2 = 0.0; ///< single stage
    double fall3 = 0.0; ///< cascade

    /// @param releaseMs 10..1000; sampleRate in Hz
    static BrickWallRates of(double releaseMs, double sampleRate);
};

/// Level detector and gain computer of the brick-wall limiter. The peak of the present sample goes into its
/// own gain; the modes differ in how the gain comes back.
class BrickWallDetector {
public:
    /// Modes 0..2 exist.
    static constexpr std::int32_t kLastMode = 2;

    void setRates(const BrickWallRates& newRates) { rates = newRates; }

    /// Puts every stage at a level.
    void restart(double level) { brickPeak = brickEnv1 = brickEnv2 = brickEnv3 = level; }

    /// Works out a gain for each detector sample.
    /// @param gains room for a whole number of vectors
    /// @param mode 0..kLastMode; ceilingInverse 1 / ceiling, linear
    template <typename V>
    VELMORA_KERNEL void process(const double* detect, double* gains, std::size_t count, double ceilingInverse,
                                std::int32_t mode, bool soft);

private:
    static constexpr double kLevelFloor = 0.01;
    static constexpr double kPeakRest = 0.1;     // -20 dB relative to the ceiling
    static constexpr double kSquareLimit = 0.25; // cap on the square law's fall, as a share of the distance

    template <typename Follow>
    VELMORA_KERNEL void followLevels(const double* detect, double* levels, std::size_t count,
                                     double ceilingInverse, Follow follow);

    VELMORA_KERNEL double followSquare(double level);  // mode 0
    VELMORA_KERNEL double followSingle(double level);  // mode 1
    VELMORA_KERNEL double followCascade(double level); // mode 2
    VELMORA_KERNEL void relaxPeak(double level, double rate);

    // Up at once, down by a share of the distance. As the share is below 1, the higher of both is the one
    // that applies. A NaN stays.
    static VELMORA_KERNEL double riseOrFall(double level, double input, double rate)
    {
        return std::max(level + (input - level) * rate, input);
    }

    template <typename V>
    static VELMORA_KERNEL void kneeGains(double* levels, std::size_t count);

    BrickWallRates rates;

    // Level relative to the ceiling.
    double brickPeak = 0.0;
    double brickEnv1 = 0.0;
    double brickEnv2 = 0.0;
    double brickEnv3 = 0.0;
};

// Small differences release slowly, so the envelope stays near the peaks of a steady wave.
inline double BrickWallDetector::followSquare(double level)
{
    brickPeak = riseOrFall(brickPeak, level, rates.fastFall);
    const double distance = brickEnv1 - brickPeak;
    const double fall = std::min(kSquareLimit * distance, distance * distance * rates.fall1);
    brickEnv1 = brickPeak > brickEnv1 ? brickPeak : brickEnv1 - fall;
    return brickEnv3 = brickEnv1;
}

inline void BrickWallDetector::relaxPeak(double level, double rate)
{
    brickPeak = std::max(brickPeak + (kPeakRest - brickPeak) * rate, level);
}

inline double BrickWallDetector::followSingle(double level)
{
    relaxPeak(level, rates.fastFall);
    return brickEnv3 = brickEnv1 = riseOrFall(brickEnv1, brickPeak, rates.fall2);
}

inline double BrickWallDetector::followCascade(double level)
{
    relaxPeak(level, rates.fall3);
    brickEnv1 = riseOrFall(brickEnv1, brickPeak, rates.fall3);
    brickEnv2 = riseOrFall(brickEnv2, brickEnv1, rates.fall3);
    return brickEnv3 = riseOrFall(brickEnv3, brickEnv2, rates.fall3);
}

template <typename Follow>
inline void BrickWallDetector::followLevels(const double* detect, double* levels, std::size_t count,
                                            double ceilingInverse, Follow follow)
{
    BrickWallDetector local = *this; // the state stays in registers: stores to levels can't alias it
    for (std::size_t i = 0; i < count; ++i)
        levels[i] = follow(local, std::fabs(detect[i]) * ceilingInverse + kLevelFloor);
    *this = local;
}

template <typename V>
inline void BrickWallDetector::kneeGains(double* levels, std::size_t count)
{
    constexpr double kSoftScale = 1.255; // just above sqrt(pi / 2): the knee ends a little below the ceiling
    std::array<double, kChunk> bent{};
    for (std::size_t i = 0; i < count; ++i) {
        levels[i] *= kSoftScale;
        bent[i] = std::atan(levels[i] * levels[i]);
    }
    for (std::size_t i = 0; i < count; i += kLaneCount<V>)
        storeLanes<V>(levels + i, sqrtLanes<V>(loadLanes<V>(bent.data() + i)) / loadLanes<V>(levels + i));
}

template <typename V>
inline void BrickWallDetector::process(const double* detect, double* gains, std::size_t count,
                                       double ceilingInverse, std::int32_t mode, bool soft)
{
    const auto run = [&](auto follow) VELMORA_KERNEL_LAMBDA {
        followLevels(detect, gains, count, ceilingInverse, follow);
    };
    using D = BrickWallDetector;
    if (mode == 0)
        run([](D& d, double level) VELMORA_KERNEL_LAMBDA { return d.followSquare(level); });
    else if (mode == 1)
        run([](D& d, double level) VELMORA_KERNEL_LAMBDA { return d.followSingle(level); });
    else
        run([](D& d, double level) VELMORA_KERNEL_LAMBDA { return d.followCascade(level); });
    constexpr double kGainGuard = 1e-6;
    mapLanes<V>(gains, gains, count, [](const V& level) VELMORA_KERNEL_LAMBDA { return level + kGainGuard; });
    if (soft)
        kneeGains<V>(gains, count);
    else
        hardGains<V>(gains, count);
}

} // namespace velmora::limiter
