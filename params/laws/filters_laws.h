#pragma once

#include <cmath>

/// Mapping laws of the filters: normalised value v (0..1) to the unit that the name ends in.
namespace velmora::filters {

inline double lowPassHz(double v)
{
    return 300.0 * std::pow(100.0, v);
}
inline double highPassHz(double v)
{
    return 20.0 * std::pow(100.0, v);
}
inline double parametricGainDb(double v)
{
    return 48.0 * v - 24.0;
}
inline double parametricHz(double v)
{
    return 20.0 * std::pow(1000.0, v);
}
inline double parametricQ(double v)
{
    return 0.05 * std::pow(400.0, v);
}

} // namespace velmora::filters
