#include "modules/limiter/saturator_level.h"

#include "dsp/flush.h"

#include <cmath>

namespace velmora::limiter {

namespace {

constexpr double kSettle = 6.1415;
constexpr double kCascadeShare = 0.333; // each of the three stages takes a third of the time
constexpr double kFlush = 1e-19;

double follow(double level, double input, double rate)
{
    return flush(level + (input - level) * rate, kFlush);
}

} // namespace

void SaturatorLevel::setTime(double smoothNorm, double sampleRate)
{
    const double samples = std::pow(200.0, std::sqrt(smoothNorm)) * 0.025 * 0.001 * 1.2 * 1.4 * sampleRate;
    satSingleRate = 1.0 - std::exp(-kSettle / samples);
    satCascadeRate = 1.0 - std::exp(-kSettle / (kCascadeShare * samples));
}

inline double SaturatorLevel::followSingle(double level)
{
    return satEnv1 = follow(satEnv1, level, satSingleRate);
}

inline double SaturatorLevel::followCascade(double level)
{
    satEnv1 = follow(satEnv1, level, satCascadeRate);
    satEnv2 = follow(satEnv2, satEnv1, satCascadeRate);
    return satEnv3 = follow(satEnv3, satEnv2, satCascadeRate);
}

void SaturatorLevel::process(const double* detect, double* levels, int count, double ceilingInverse,
                             bool soft)
{
    SaturatorLevel local = *this; // the state stays in registers: stores to levels can't alias it
    for (int i = 0; i < count; ++i) {
        const double level = std::fabs(detect[i]) * ceilingInverse;
        levels[i] = soft ? local.followSingle(level) : local.followCascade(level);
    }
    *this = local;
}

} // namespace velmora::limiter
