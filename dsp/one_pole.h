#pragma once

#include <cmath>

namespace velmora {

/// Share of a step left over after the time of a one-pole rate, -19.2 dB.
inline constexpr double kRateResidue = 0.1091012;

/// One-pole step that leaves `residue` of a step after `seconds`.
/// @range seconds > 0, sampleRate in Hz; result 0..1 per sample.
inline double onePoleRate(double seconds, double sampleRate, double residue = kRateResidue)
{
    return 1.0 - std::pow(residue, 1.0 / (seconds * sampleRate));
}

} // namespace velmora
