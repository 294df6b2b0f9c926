#include "modules/limiter/brickwall_detector.h"

#include "dsp/one_pole.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace velmora::limiter {

namespace {

constexpr double kTwoPi = 2.0 * std::numbers::pi;
constexpr double kFastFallSeconds = 0.0025;
// Seconds per millisecond of the Release control.
constexpr double kSquareScale = 0.0021;
constexpr double kSingleScale = 0.00105;
constexpr double kCascadeScale = 0.0002625;

constexpr double kLevelFloor = 0.01;
constexpr double kPeakRest = 0.1;     // -20 dB relative to the ceiling
constexpr double kSquareLimit = 0.25; // cap on the square law's fall, as a share of the distance
constexpr double kGainGuard = 1e-6;
constexpr double kSoftScale = 1.255; // just above sqrt(pi / 2): the knee ends a little below the ceiling

double fallRate(double scale, double sampleRate, double releaseMs)
{
    return 1.0 - std::pow(kRateResidue, 1.0 / (scale * sampleRate * releaseMs));
}

double gainAt(double t, bool soft)
{
    if (!soft) return t >= 1.0 ? 1.0 / t : 1.0;
    const double u = kSoftScale * t;
    return std::sqrt(std::atan(u * u)) / u;
}

// Up at once, down by a share of the distance.
double riseOrFall(double level, double input, double rate)
{
    return input > level ? input : level + (input - level) * rate;
}

} // namespace

void BrickWallDetector::setRelease(double releaseMs, double sampleRate)
{
    fastFall = 1.0 - std::exp(-kTwoPi / (kFastFallSeconds * sampleRate));
    fall1 = fallRate(kSquareScale, sampleRate, releaseMs);
    fall2 = fallRate(kSingleScale, sampleRate, releaseMs);
    fall3 = fallRate(kCascadeScale, sampleRate, releaseMs);
}

// Small differences release slowly, so the envelope stays near the peaks of a steady wave.
inline void BrickWallDetector::followSquare(double level)
{
    brickPeak = riseOrFall(brickPeak, level, fastFall);
    if (brickPeak > brickEnv1) {
        brickEnv1 = brickPeak;
    } else {
        const double distance = brickEnv1 - brickPeak;
        brickEnv1 -= std::min(kSquareLimit * distance, distance * distance * fall1);
    }
    brickEnv3 = brickEnv1;
}

inline void BrickWallDetector::relaxPeak(double level, double rate)
{
    brickPeak += (kPeakRest - brickPeak) * rate;
    if (level > brickPeak) brickPeak = level;
}

inline void BrickWallDetector::followSingle(double level)
{
    relaxPeak(level, fastFall);
    brickEnv1 = riseOrFall(brickEnv1, brickPeak, fall2);
    brickEnv3 = brickEnv1;
}

inline void BrickWallDetector::followCascade(double level)
{
    relaxPeak(level, fall3);
    brickEnv1 = riseOrFall(brickEnv1, brickPeak, fall3);
    brickEnv2 = riseOrFall(brickEnv2, brickEnv1, fall3);
    brickEnv3 = riseOrFall(brickEnv3, brickEnv2, fall3);
}

template <typename Follow>
void BrickWallDetector::run(const double* detect, double* gains, int count, double ceilingInverse, bool soft,
                            Follow follow)
{
    BrickWallDetector local = *this; // the state stays in registers: stores to gains can't alias it
    for (int i = 0; i < count; ++i) {
        follow(local, std::fabs(detect[i]) * ceilingInverse + kLevelFloor);
        gains[i] = gainAt(local.brickEnv3 + kGainGuard, soft);
    }
    *this = local;
}

void BrickWallDetector::process(const double* detect, double* gains, int count, double ceilingInverse,
                                std::int32_t mode, bool soft)
{
    switch (mode) {
    case 0:
        run(detect, gains, count, ceilingInverse, soft,
            [](BrickWallDetector& d, double level) { d.followSquare(level); });
        break;
    case 1:
        run(detect, gains, count, ceilingInverse, soft,
            [](BrickWallDetector& d, double level) { d.followSingle(level); });
        break;
    default:
        run(detect, gains, count, ceilingInverse, soft,
            [](BrickWallDetector& d, double level) { d.followCascade(level); });
        break;
    }
}

} // namespace velmora::limiter
