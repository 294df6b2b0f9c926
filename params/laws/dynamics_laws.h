#pragma once

#include <cmath>

#include <algorithm>
#include <array>

/// Mapping laws of expander, gate and ducker: normalised value v (0..1) to the unit that the name ends in.
namespace velmora::dynamics {

inline double attackMs(double v)
{
    return std::clamp(0.1 * std::pow(2500.0, v), 0.1, 250.0);
}
inline double releaseMs(double v)
{
    return 10.0 * std::pow(300.0, v);
}
inline double holdMs(double v)
{
    return 400.0 * v * v;
}
inline double thresholdDb(double v)
{
    return std::clamp(60.0 * v - 60.0, -60.0, 0.0);
}
inline double rangeGain(double v)
{
    return v * v;
}
inline double keyHighPassHz(double v)
{
    return std::clamp(20.0 * std::pow(400.0, v), 20.0, 8000.0);
}
inline double keyLowPassHz(double v)
{
    return std::clamp(50.0 * std::pow(400.0, v), 50.0, 20000.0);
}

/// Ratios as they are shown and typed, by ratio index.
inline constexpr std::array<double, 11> kShownRatios{1.0, 1.1, 1.2, 1.3, 1.5, 1.7, 2.0, 2.5, 3.2, 5.0, 10.0};

} // namespace velmora::dynamics
