#include "modules/limiter/brickwall_detector.h"

#include "dsp/one_pole.h"

#include <numbers>

namespace velmora::limiter {

namespace {

constexpr double kTwoPi = 2.0 * std::numbers::pi;
constexpr double kFastFallSeconds = 0.0025;
// Seconds per millisecond of the Release control.
constexpr double kSquareScale = 0.0021;
constexpr double kSingleScale = 0.00105;
constexpr double kCascadeScale = 0.0002625;

double fallRate(double scale, double sampleRate, double releaseMs)
{
    return 1.0 - std::pow(kRateResidue, 1.0 / (scale * sampleRate * releaseMs));
}

} // namespace

BrickWallRates BrickWallRates::of(double releaseMs, double sampleRate)
{
    return {1.0 - std::exp(-kTwoPi / (kFastFallSeconds * sampleRate)),
            fallRate(kSquareScale, sampleRate, releaseMs), fallRate(kSingleScale, sampleRate, releaseMs),
            fallRate(kCascadeScale, sampleRate, releaseMs)};
}

} // namespace velmora::limiter
