#pragma once

#include <cmath>

/// Mapping laws of De-esser, De-hummer and Marlow: normalised value v (0..1) to the unit that the name ends
/// in.
namespace velmora {

/// Taper that puts -6 dB of a 24 dB span, or -12 of 48, in the middle.
inline constexpr double kHalfwayTaper = 0.415037499278844;
inline constexpr double kHalfwayInverse = 2.409420839653208; // its reciprocal, for typed values

inline double percent(double v)
{
    return 100.0 * v;
}

namespace deesser {
inline constexpr double kTaper = 0.736965594166206;
inline constexpr double kTaperInverse = 1.3569154488567243;
inline double frequencyHz(double v)
{
    return 500.0 * std::pow(32.0, std::pow(v, kTaper));
}
inline double q(double v)
{
    return 0.5 * std::pow(32.0, std::pow(v, kTaper));
}
inline double rangeDb(double v)
{
    return std::pow(v, kHalfwayTaper) * 24.0 - 24.0;
}
} // namespace deesser

namespace dehummer {
inline double attenuationDb(double v)
{
    return std::pow(v, kHalfwayTaper) * 48.0 - 48.0;
}
/// Trim in steps of 0.01 Hz.
inline double offsetHz(double v)
{
    return std::trunc(v * 2000.0 + 0.5) * 0.01 - 10.0;
}
} // namespace dehummer

namespace marlow {
inline double thresholdDb(double v)
{
    return 100.0 * (v - 1.0) + 20.0;
}
inline double timeFactor(double v)
{
    return 0.1 * std::pow(100.0, v);
}
inline double frequencyHz(double v)
{
    return 20.0 * std::pow(1000.0, v);
}
inline double gainDb(double v)
{
    return 48.0 * v - 24.0;
}
inline double peakQ(double v)
{
    return 0.1 * std::pow(100.0, v);
}
inline double shelfQ(double v)
{
    return 0.35 * std::pow(4.0, v);
}
} // namespace marlow

} // namespace velmora
