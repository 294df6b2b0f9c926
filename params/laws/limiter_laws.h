#pragma once

#include <cmath>

/// Mapping laws of the limiters: normalised value v (0..1) to the unit that the name ends in.
namespace velmora::limiter {

inline double attackMs(double v)
{
    return 0.1 * std::pow(1000.0, v);
}
inline double releaseMs(double v)
{
    return 10.0 * std::pow(100.0, v);
}
inline double ceilingDb(double v)
{
    return 50.0 * v - 40.0;
}
inline double outputDb(double v)
{
    return 40.0 * v - 20.0;
}
inline double highPassHz(double v)
{
    return 10.0 * std::pow(100.0, v);
}

} // namespace velmora::limiter
