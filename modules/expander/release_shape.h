#pragma once

#include <cmath>

namespace velmora {

/// Share of a step left over after an attack or release time, -22.3 dB.
inline constexpr double kDynamicsResidue = 0.07637084;

/// One-pole step of an attack. @unit ms, Hz; result 0..1 per sample.
double dynamicsAttackRate(double attackMs, double sampleRate);

/// How the gain moves back: exponentially at one end of the shape, almost in a straight line at the other.
struct ReleaseShape {
    double power = 1.0;       ///< 1 (exponential) .. 1/16 (nearly straight)
    double coefficient = 0.0; ///< step per sample at a distance of 1

    /// distance^power; the root is that of the middle of the shape, where most leave it.
    double raised(double distance) const
    {
        if (power == 0.5) return std::sqrt(distance);
        return power == 1.0 ? distance : std::pow(distance, power);
    }

    /// Step of one sample. @param distance still to go, 0..1.
    double step(double distance) const { return distance > 0.0 ? raised(distance) * coefficient : 0.0; }
};

/// @param shape 0..1. The coefficient is corrected so that the release time holds for every shape.
ReleaseShape makeReleaseShape(double shape, double releaseMs, double sampleRate);

} // namespace velmora
