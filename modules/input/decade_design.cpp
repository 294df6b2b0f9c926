#include "modules/input/decade_design.h"

#include <cmath>

namespace velmora::preamp {

namespace {

double oneMinusExp(double w, double sampleRate)
{
    return 1.0 - std::exp(-w / sampleRate);
}

RailDesigns alike(const BiquadSettings& settings)
{
    const BiquadCoefficients design = designBiquad(settings);
    return {design, design};
}

RailDesigns tilt(const DecadeConstants& d, const ComponentSpread& spread, double sampleRate)
{
    const auto rail = [&](int i) {
        const double gainDb = d.tiltGainDb * std::sqrt(spread.factor(TolerancePair::T12, i));
        return designBiquad({StripBiquadKind::HighShelf, d.tiltFrequency, d.tiltQ, gainDb, sampleRate});
    };
    return {rail(0), rail(1)};
}

RailDesigns bell(const HumPeak& hum, const ComponentSpread& spread, double sampleRate)
{
    const auto rail = [&](int i) {
        return designBiquad({StripBiquadKind::Peaking, hum.frequency.of(spread, i), hum.q.of(spread, i),
                             hum.gainDb.of(spread, i), sampleRate});
    };
    return {rail(0), rail(1)};
}

} // namespace

DecadeDesign designDecade(std::int32_t emulation, const ComponentSpread& spread, double sampleRate)
{
    using enum StripBiquadKind;
    const DecadeConstants& d = decadeConstants(emulation);
    // 256 ^ sqrt(0.5) / 256, at a sixteenth of an eighth
    const double bias = d.biased ? std::pow(256.0, std::sqrt(0.5)) / 256.0 * 0.0625 * 0.125 : 0.0;
    return {
        .constants = &d,
        .stage1 = BiasedStage::coefficients(d.stage1, sampleRate),
        .transistor = {.bias = bias,
                       .harmonic = oneMinusExp(d.harmonicW, sampleRate),
                       .makeUp = d.stage2MakeUp,
                       .outGain = d.stage2OutGain},
        .noiseFilterCoefficient = oneMinusExp(d.noiseFilterW, sampleRate),
        .noise = {.tilt = tilt(d, spread, sampleRate),
                  .hum1 = bell(d.hum1, spread, sampleRate),
                  .hum2 = bell(d.hum2, spread, sampleRate),
                  .hum3 = bell(d.hum3, spread, sampleRate)},
        .bandwidth = alike({OnePoleLowPass, d.bandwidthFrequency, 1.0, 0.0, sampleRate}),
        .crosstalk = alike({BandPass, d.crosstalkFrequency, d.crosstalkQ, 0.0, sampleRate}),
        .bump = alike({Peaking, d.bumpFrequency, d.bumpQ, d.bumpGainDb, sampleRate}),
    };
}

} // namespace velmora::preamp
