#pragma once

#include <cmath>

namespace velmora {

/// Level of a detector's envelopes while nothing plays.
inline constexpr double kIdleEnvelope = 0.0001;

/// Attack and release of a compressor as its detectors take them.
struct CompressorTimes {
    double a; ///< attack 0..1, bent so that the middle of the knob is fast
    double R; ///< release 0..1
    double sr;
};

/// @param attackValue, releaseValue normalised 0..1. @param sr in Hz.
inline CompressorTimes compressorTimes(double attackValue, double releaseValue, double sr)
{
    constexpr double kAttackBend = 0.5849625; // log2(1.5): half way lies at two thirds
    return {std::pow(attackValue, kAttackBend), releaseValue, sr};
}

/// One-pole step 1 - exp(-2 pi f / sr) for a corner frequency f in Hz.
inline double stepOfFrequency(double hz, double sr)
{
    return 1.0 - std::exp(hz * -6.283185307179586 / sr);
}

/// The same step from the corner's period: @param x period in ms times the sample rate in Hz.
inline double stepOfPeriod(double x)
{
    return 1.0 - std::exp(-6283.185307179586 / x);
}

} // namespace velmora
