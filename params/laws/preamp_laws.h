#pragma once

#include <cmath>

/// Mapping laws of the preamp: normalised value v (0..1) to the unit that the name ends in.
namespace velmora::preamp {

inline double gainDb(double v)
{
    return 60.0 * v - 30.0;
}
inline double referenceDb(double v)
{
    return 30.0 * v - 30.0;
}
/// Drive into the console emulation, linear: -30 .. +30 dB.
inline double driveGain(double v)
{
    return std::pow(1000.0, v) * 0.1 * 0.3162277638912201;
}
/// Noise level, linear: -120 .. -60 dB.
inline double noiseGain(double v)
{
    return std::pow(1000.0, v) * 0.000001;
}

} // namespace velmora::preamp
