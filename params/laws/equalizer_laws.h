#pragma once

#include <cmath>

/// Mapping laws of the equaliser: normalised value v (0..1) to the unit that the name ends in.
namespace velmora::equalizer {

/// Tangent taper of the outer bands: flat in the middle, steep at the ends.
inline double tangentTaper(double v, double exponent)
{
    return std::tan(2.0 * std::pow(v, exponent) - 1.0) * 0.5 / std::tan(1.0) + 0.5;
}

inline double gainDb(double v)
{
    return v * 36.0 - 18.0;
}
inline double highHz(double v)
{
    return 1400.0 * std::pow(20.0, std::pow(tangentTaper(v, 0.4), 1.4155));
}
inline double highMidHz(double v)
{
    return 500.0 * std::pow(20.0, std::pow(v, 0.89635));
}
inline double lowMidHz(double v)
{
    return 100.0 * std::pow(20.0, std::pow(v, 0.89635));
}
inline double lowHz(double v)
{
    return 20.0 * std::pow(20.0, tangentTaper(v, 0.6255));
}

} // namespace velmora::equalizer
