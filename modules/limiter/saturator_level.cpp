#include "modules/limiter/saturator_level.h"

#include <cmath>

namespace velmora::limiter {

namespace {

constexpr double kSettle = 6.1415;
constexpr double kCascadeShare = 0.333; // each of the three stages takes a third of the time

} // namespace

void SaturatorLevel::setTime(double smoothNorm, double sampleRate)
{
    const double samples = std::pow(200.0, std::sqrt(smoothNorm)) * 0.025 * 0.001 * 1.2 * 1.4 * sampleRate;
    satSingleRate = 1.0 - std::exp(-kSettle / samples);
    satCascadeRate = 1.0 - std::exp(-kSettle / (kCascadeShare * samples));
}

} // namespace velmora::limiter
