#include "modules/input/tube_shaper.h"

#include <algorithm>
#include <cmath>

namespace velmora::preamp {

namespace {

constexpr double kMinRate = 44100.0;
constexpr double kMaxRate = 400000.0;
constexpr double kFloor = 1e-9; // of both envelopes, so that no gain divides by zero
constexpr double kUpperSlope = 1.22;
constexpr double kLowerSlope = 1.1;
constexpr double kReferenceLevel = 0.7071; // where the curve has unity gain

double sign(double v)
{
    return v < 0.0 ? -1.0 : 1.0;
}

} // namespace

void TubeShaper::setSampleRate(double hz)
{
    sampleRate_ = std::clamp(hz, kMinRate, kMaxRate);
    attackCoefficient_ = 1.0 - std::exp(-4.4427093 / (sampleRate_ * attackTime_));
    upEnvelope_ = kFloor;
    downEnvelope_ = kFloor;

    shape_ = std::clamp(8.0 / std::pow(16.0, 0.6), 0.1, 10.0);
    shapeRoot_ = std::pow(shape_, 0.125);
    inverseShape_ = 1.0 / shape_;
    upperSlope_ = kUpperSlope - shape_ * 0.125;
    lowerSlope_ = kLowerSlope - shape_ * 0.125;
    const double bent =
        std::tanh(std::pow(std::fabs(lowerSlope_ * kReferenceLevel), shape_) * shapeRoot_) / shapeRoot_;
    makeUp_ = kReferenceLevel / (std::pow(bent, inverseShape_) / lowerSlope_);
    lowerGain_ = lowerGain();
}

double TubeShaper::run(double x)
{
    upEnvelope_ += (std::max(x, kFloor) - upEnvelope_) * attackCoefficient_;
    const double y = upperGain() * x;
    if (y < -kFloor) {
        downEnvelope_ -= (downEnvelope_ + y) * attackCoefficient_;
        lowerGain_ = lowerGain();
    }
    return lowerGain_ * y * makeUp_;
}

double TubeShaper::upperGain() const
{
    const double bent =
        std::atan(std::pow(std::fabs(upperSlope_ * upEnvelope_), shape_) * shapeRoot_) / shapeRoot_;
    return std::pow(bent, inverseShape_) * sign(upEnvelope_) / upperSlope_ / upEnvelope_;
}

double TubeShaper::lowerGain() const
{
    const double bent =
        std::tanh(std::pow(std::fabs(lowerSlope_ * downEnvelope_), shape_) * shapeRoot_) / shapeRoot_;
    return std::pow(bent, inverseShape_) * sign(downEnvelope_) / lowerSlope_ / downEnvelope_;
}

} // namespace velmora::preamp
