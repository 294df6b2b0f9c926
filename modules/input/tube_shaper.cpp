#include "modules/input/tube_shaper.h"

#include "dsp/run_widest.h"
#include "dsp/vector_math.h"

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

} // namespace

void TubeShaper::setSampleRate(double hz)
{
    sampleRate_ = std::clamp(hz, kMinRate, kMaxRate);
    attackCoefficient_ = 1.0 - std::exp(-4.4427093 / (sampleRate_ * attackTime_));
    upEnvelope_ = downEnvelope_ = allLanes<Rails>(kFloor);

    shape_ = std::clamp(8.0 / std::pow(16.0, 0.6), 0.1, 10.0);
    shapeRoot_ = std::pow(shape_, 0.125);
    inverseShape_ = 1.0 / shape_;
    inverseRoot_ = 1.0 / shapeRoot_;
    upperSlope_ = kUpperSlope - shape_ * 0.125;
    lowerSlope_ = kLowerSlope - shape_ * 0.125;
    const double bent =
        std::tanh(std::pow(std::fabs(lowerSlope_ * kReferenceLevel), shape_) * shapeRoot_) / shapeRoot_;
    makeUp_ = kReferenceLevel / (std::pow(bent, inverseShape_) / lowerSlope_);
}

void TubeShaper::run(RailPiece& signal, int count)
{
    runWidest([&](auto width) {
        runUpperHalf<decltype(width)::value>(signal, count);
        runLowerHalf<decltype(width)::value>(signal, count);
    });
}

template <std::size_t width>
VELMORA_KERNEL void TubeShaper::runUpperHalf(RailPiece& signal, int count)
{
    using V = Lanes<width>;
    const double attack = attackCoefficient_;
    Rails envelope = upEnvelope_;
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
        envelope += (maxLanes(allLanes<Rails>(kFloor), signal[i]) - envelope) * attack;
        envelope_.put(i, envelope);
    }
    upEnvelope_ = envelope;
    forEachVector<V>(count, [&](std::size_t at) VELMORA_KERNEL_LAMBDA {
        signal.putVector<V>(at, upperGain(envelope_.vectorAt<V>(at)) * signal.vectorAt<V>(at));
    });
}

template <std::size_t width>
VELMORA_KERNEL void TubeShaper::runLowerHalf(RailPiece& signal, int count)
{
    using V = Lanes<width>;
    const double attack = attackCoefficient_;
    Rails envelope = downEnvelope_;
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
        const Rails y = signal[i];
        envelope = choose<Rails>(y < -kFloor, envelope - (envelope + y) * attack, envelope);
        envelope_.put(i, envelope);
    }
    downEnvelope_ = envelope;
    forEachVector<V>(count, [&](std::size_t at) VELMORA_KERNEL_LAMBDA {
        signal.putVector<V>(at, lowerGain(envelope_.vectorAt<V>(at)) * signal.vectorAt<V>(at) * makeUp_);
    });
}

template <typename V>
VELMORA_KERNEL V TubeShaper::upperGain(const V& envelope) const
{
    return bentGain<V>(upperSlope_ * envelope, [](const V& v) { return atanLanes<V>(v); });
}

template <typename V>
VELMORA_KERNEL V TubeShaper::lowerGain(const V& envelope) const
{
    return bentGain<V>(lowerSlope_ * envelope, [](const V& v) { return tanhLanes<V>(v); });
}

// With p the shape and r its root, (curve(x^p r) / r)^(1 / p) / x in logarithms: two of them and two
// exponentials in place of two powers and three divisions, a few units of the last place off.
template <typename V, typename Curve>
VELMORA_KERNEL V TubeShaper::bentGain(const V& x, Curve curve) const
{
    const V level = logLanes<V>(x);
    const V bent = logLanes<V>(curve(expLanes<V>(level * shape_) * shapeRoot_) * inverseRoot_);
    return expLanes<V>(bent * inverseShape_ - level);
}

} // namespace velmora::preamp
