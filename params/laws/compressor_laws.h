#pragma once

#include <cmath>

/// Mapping laws of the compressor: normalised value v (0..1) to the unit that the name ends in.
namespace velmora::compressor {

inline double attackMs(double v)
{
    return 0.1 * std::pow(1000.0, v);
}
inline double releaseMs(double v)
{
    return 25.0 * std::pow(100.0, v);
}
inline double thresholdDb(double v)
{
    return 50.0 * v - 40.0;
}
inline double makeupDb(double v)
{
    return 20.0 * v;
}
inline double highPassHz(double v)
{
    return 10.0 * std::pow(100.0, v);
}
/// Ratio n of n:1; from `kInfiniteRatio` on the display says infinity.
inline double ratio(double v)
{
    return 1.0 / (1.0 - std::pow(v, 0.415));
}
inline constexpr double kInfiniteRatio = 0.976073;

} // namespace velmora::compressor
