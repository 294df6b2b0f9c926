#include "modules/limiter/opto_detector.h"

#include "dsp/one_pole.h"

#include <numbers>

namespace velmora::limiter {

namespace {

constexpr double kTwoPi = 2.0 * std::numbers::pi;
constexpr double kReferenceRate = 44100.0;
constexpr double kReferenceKilohertz = 44.1;

constexpr double kCornerRiseHz = 4000.0;
constexpr double kCornerFallHz = 100.0;
constexpr double kHoldScale = 0.012;

// Share per sample of a low-pass of that cutoff.
double cutoffRate(double hz, double sampleRate)
{
    return 1.0 - std::exp(-kTwoPi * hz / sampleRate);
}

} // namespace

void OptoRates::setSampleRate(double sampleRate)
{
    cornerRise = cutoffRate(kCornerRiseHz, sampleRate);
    cornerFall = cutoffRate(kCornerFallHz, sampleRate);
}

void OptoRates::setAttack(double norm, double sampleRate)
{
    // The rate is set at the middle of the travel and scales from there with 1 / time and 1 / rate.
    const double middleMs = std::sqrt(1000.0) * 0.1 * 0.33;
    const double middleRate = 1.0 - std::pow(kRateResidue, 1.0 / (middleMs * kReferenceKilohertz));
    const double ms = 0.1 * 4.0 * 0.33 * std::pow(10000.0, norm);
    attack = middleRate * (middleMs / ms) * (kReferenceRate / sampleRate);
}

void OptoRates::setRelease(double norm, double sampleRate)
{
    const double ms = 3.5 * std::pow(1000.0, norm);
    hold = 1.0 - std::exp(-kTwoPi / (std::sqrt(ms * 0.001) * sampleRate * kHoldScale));
    release = onePoleRate(ms * 0.001, sampleRate);
}

} // namespace velmora::limiter
