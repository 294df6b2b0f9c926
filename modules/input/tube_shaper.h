#pragma once

namespace velmora::preamp {

/// Tube stage of the 60s: the halves of the wave are compressed by separate envelopes, the upper along an
/// arctangent and the lower along a hyperbolic tangent, which makes an asymmetric, level-dependent curve.
class TubeShaper {
public:
    TubeShaper() { setSampleRate(44100.0); }

    /// Sets coefficients and clears the envelopes. @param hz clamped to 44100..400000.
    void setSampleRate(double hz);

    double run(double x);

private:
    double upperGain() const;
    double lowerGain() const;

    double sampleRate_ = 0.0;
    double shape_ = 1.0;
    double makeUp_ = 1.0;
    double attackTime_ = 0.001; // seconds
    double attackCoefficient_ = 0.0;
    double upEnvelope_ = 0.0;
    double downEnvelope_ = 0.0;

    // Of the shape alone.
    double shapeRoot_ = 1.0; // shape ^ 0.125
    double inverseShape_ = 1.0;
    double upperSlope_ = 1.0;
    double lowerSlope_ = 1.0;

    double lowerGain_ = 1.0; // of the present lower envelope, which holds through the positive half
};

} // namespace velmora::preamp
