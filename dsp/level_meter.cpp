#include "dsp/level_meter.h"

#include <cmath>

namespace velmora {

namespace {

constexpr double kMilli = 0.001;
constexpr double kAttackResidue = 0.01;    // the meter has made 99 % of a step
constexpr double kReleaseResidue = 0.0625; // the meter has fallen to 1/16

// One-pole step of a meter time in milliseconds, multiplied in the order ms x rate x 0.001.
double meterRate(double milliseconds, double sampleRate, double residue)
{
    return 1.0 - std::pow(residue, 1.0 / (milliseconds * sampleRate * kMilli));
}

} // namespace

LevelRates levelMeterRates(double sampleRate)
{
    const double attackMs = std::pow(101.0, 0.4) - 1.0;
    const double releaseMs = std::pow(100.0, 0.4) * 100.0;
    return {attackMs > 0.05 ? meterRate(attackMs, sampleRate, kAttackResidue) : 1.0,
            meterRate(releaseMs, sampleRate, kReleaseResidue)};
}

} // namespace velmora
