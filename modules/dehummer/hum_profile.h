#pragma once

#include <array>
#include <cstddef>

namespace velmora {

/// Harmonics of the hum are numbered 1 (fundamental) to 18; arrays hold harmonic n at n - 1.
inline constexpr int kHarmonics = 18;
using PerHarmonic = std::array<double, kHarmonics>;

inline double& harmonic(PerHarmonic& values, int n)
{
    return values[static_cast<std::size_t>(n - 1)];
}
inline double harmonic(const PerHarmonic& values, int n)
{
    return values[static_cast<std::size_t>(n - 1)];
}

/// How the harmonics are weighed against the fundamental.
struct HumProfile {
    double oddWeight = 1.0;        ///< 0..1
    double evenWeight = 1.0;       ///< 0..1
    double brightnessCurve = 0.25; ///< 0 harmonics reach furthest .. 1

    /// EvenOdd control, normalised: 0 odd only, 0.5 both alike, 1 even only.
    void setEvenOdd(double v);
    /// Brightness control, normalised.
    void setBrightness(double v) { brightnessCurve = (1.0 - v) * (1.0 - v); }

    /// Share of each harmonic in the attenuation, parity included.
    PerHarmonic shares() const;
};

} // namespace velmora
