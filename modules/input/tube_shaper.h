#pragma once

#include "modules/input/rails.h"

#include <array>
#include <cstddef>

namespace velmora::preamp {

/// Tube stage of the 60s: the halves of the wave are compressed by separate envelopes, the upper along an
/// arctangent and the lower along a hyperbolic tangent, which makes an asymmetric, level-dependent curve.
///
/// Only the envelopes are serial. The curves are taken over the whole block, in wide vectors, function by
/// function.
class TubeShaper {
public:
    TubeShaper() { setSampleRate(44100.0); }

    /// Sets coefficients and clears the envelopes. @param hz clamped to 44100..400000.
    void setSampleRate(double hz);

    /// Both rails in place. @range count 0..64
    void run(RailPiece& signal, int count);

private:
    template <typename V>
    VELMORA_KERNEL void runUpperHalf(RailPiece& signal, int count);
    template <typename V>
    VELMORA_KERNEL void runLowerHalf(RailPiece& signal, int count);
    template <typename V, typename Curve>
    VELMORA_KERNEL void takeGains(std::size_t count, Curve curve);

    double sampleRate_ = 0.0;
    double shape_ = 1.0;
    double makeUp_ = 1.0;
    double attackTime_ = 0.001; // seconds
    double attackCoefficient_ = 0.0;
    Rails upEnvelope_{};
    Rails downEnvelope_{}; // holds through the positive half

    // Of the shape alone.
    double shapeRoot_ = 1.0; // shape ^ 0.125
    double inverseShape_ = 1.0;
    double inverseRoot_ = 1.0;
    double upperSlope_ = 1.0;
    double lowerSlope_ = 1.0;

    // Scratch, rails in turn: the envelopes' curves on their way to gains, and their logarithms. The lower
    // half takes one pair more than a piece has; the rest fills up the last vector.
    using Curves = std::array<double, kRails*(kPiece + 4)>;
    alignas(64) Curves curves_{};
    alignas(64) Curves levels_{};
};

} // namespace velmora::preamp
