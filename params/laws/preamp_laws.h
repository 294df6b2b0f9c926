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
/// Drive as it is shown, linear: -30 .. +30 dB. The tenth is the single-precision one, which keeps the middle
/// on the positive side of 0 dB.
inline double driveGain(double v)
{
    return std::pow(1000.0, v) * 0.10000000149011612 * 0.3162277638912201;
}
/// Noise level as it is shown, linear: -120 .. -60 dB; the millionth is the single-precision one.
inline double noiseGain(double v)
{
    return std::pow(1000.0, v) * 9.999999974752427e-7;
}

} // namespace velmora::preamp
