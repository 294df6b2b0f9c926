#include "modules/input/tube_shaper.h"

#include "dsp/run_widest.h"
#include "dsp/vector_math.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

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
    runWidest([&](auto width) VELMORA_KERNEL_LAMBDA {
        runUpperHalf<Lanes<decltype(width)::value>>(signal, count);
        runLowerHalf<Lanes<decltype(width)::value>>(signal, count);
    });
}

template <typename V>
VELMORA_KERNEL void TubeShaper::runUpperHalf(RailPiece& signal, int count)
{
    const double attack = attackCoefficient_;
    Rails envelope = upEnvelope_;
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
        envelope += (maxLanes(allLanes<Rails>(kFloor), signal[i]) - envelope) * attack;
        storeLanes<Rails>(&curves_[kRails * i], upperSlope_ * envelope);
    }
    upEnvelope_ = envelope;
    takeGains<V>(kRails * static_cast<std::size_t>(count),
                 [](const V& v) VELMORA_KERNEL_LAMBDA { return atanLanes<V>(v); });
    forEachVector<V>(count, [&](std::size_t at) VELMORA_KERNEL_LAMBDA {
        signal.putVector<V>(at, loadLanes<V>(&curves_[at]) * signal.vectorAt<V>(at));
    });
}

// The envelope and its gain hold through the positive half. So a gain is only taken where an envelope moved,
// after the one that was held when the piece began.
template <typename V>
VELMORA_KERNEL void TubeShaper::runLowerHalf(RailPiece& signal, int count)
{
    const double attack = attackCoefficient_;
    Rails envelope = downEnvelope_;
    std::array<std::uint8_t, kPiece> gainOf; // of each sample
    std::size_t last = 0;
    storeLanes<Rails>(&curves_[0], lowerSlope_ * envelope);
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
        const Rails y = signal[i];
        const MaskOf<Rails> negative = y < -kFloor;
        envelope = choose<Rails>(negative, envelope - (envelope + y) * attack, envelope);
        last += static_cast<std::size_t>((negative[0] | negative[1]) & 1);
        storeLanes<Rails>(&curves_[kRails * last], lowerSlope_ * envelope);
        gainOf[i] = static_cast<std::uint8_t>(last);
    }
    downEnvelope_ = envelope;
    takeGains<V>(kRails * (last + 1), [](const V& v) VELMORA_KERNEL_LAMBDA { return tanhLanes<V>(v); });
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i)
        signal.put(i, loadLanes<Rails>(&curves_[kRails * gainOf[i]]) * signal[i] * makeUp_);
}

// Of x in `curves_`, with p the shape and r its root, (curve(x^p r) / r)^(1 / p) / x in logarithms: two of
// them and two exponentials in place of two powers and three divisions, a few units of the last place off.
//
// Each function goes over the block in a pass of its own. The vectors of a pass overlap in the processor,
// where the functions of one vector would wait for each other.
template <typename V, typename Curve>
VELMORA_KERNEL void TubeShaper::takeGains(std::size_t count, Curve curve)
{
    const auto pass = [count](const Curves& from, Curves& to, auto function) VELMORA_KERNEL_LAMBDA {
        for (std::size_t at = 0; at < count; at += kLaneCount<V>)
            storeLanes<V>(&to[at], function(loadLanes<V>(&from[at]), at));
    };
    const auto log = [](const V& v, std::size_t) VELMORA_KERNEL_LAMBDA { return logLanes<V>(v); };
    pass(curves_, levels_, log);
    pass(levels_, curves_, [&](const V& level, std::size_t) VELMORA_KERNEL_LAMBDA {
        return expLanes<V>(level * shape_) * shapeRoot_;
    });
    pass(curves_, curves_,
         [&](const V& v, std::size_t) VELMORA_KERNEL_LAMBDA { return curve(v) * inverseRoot_; });
    pass(curves_, curves_, log);
    pass(curves_, curves_, [&](const V& bent, std::size_t at) VELMORA_KERNEL_LAMBDA {
        return expLanes<V>(bent * inverseShape_ - loadLanes<V>(&levels_[at]));
    });
}

} // namespace velmora::preamp
