#pragma once

#include <cmath>

#include <numbers>

/// Mapping laws of the master fader: normalised value v (0..1) to the unit that the name ends in.
namespace velmora::output {

inline double widthPercent(double v)
{
    return v * 200.0;
}
/// Linear fader gain: -100 dB just above the bottom to +10 dB, and silence at 0.
inline double faderGain(double v)
{
    return v > 0.0 ? std::pow(10.0, 5.5 * std::pow(v, 0.333)) * 0.00001 : 0.0;
}

/// Constant-power balance, unity in the middle; a side below -100 dB is silent.
inline constexpr double kQuarterTurn = 1.57079632679;
inline double balanceFloor(double gain)
{
    return gain < 0.00001 ? 0.0 : gain;
}
inline double balanceLeft(double v)
{
    return balanceFloor(std::cos(v * kQuarterTurn) * std::numbers::sqrt2);
}
inline double balanceRight(double v)
{
    return balanceFloor(std::sin(v * kQuarterTurn) * std::numbers::sqrt2);
}

} // namespace velmora::output
