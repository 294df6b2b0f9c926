#pragma once

#include "dsp/flush.h"
#include "dsp/strip_biquad.h"
#include "modules/input/component_spread.h"
#include "modules/input/decade_constants.h"
#include "modules/input/noise_generator.h"

namespace velmora::preamp {

/// Hiss and hum of one rail: white noise through a one-pole low-pass, then a tilt and three hum bells.
class ConsoleNoise {
public:
    ConsoleNoise(GeneratorWords seed, double noiseTrim) : generator_(seed), noiseTrim_(noiseTrim) {}

    /// The sections get the rate in Hz, the rail falls silent.
    void reset(double sampleRate);
    /// Lands the shaping on a decade's, with the tolerances of this unit's rail.
    void tune(const DecadeConstants& decade, const ComponentSpread& spread, int rail);

    /// Fills a block with unshaped noise. @param gain linear level before the rail's trim, as its two factors
    /// in the order of multiplication. @param filterCoefficient of the one-pole low-pass, per sample.
    void generate(double* block, int count, double level, double scale, double filterCoefficient)
    {
        double state = filterState_;
        for (int i = 0; i < count; ++i) {
            state = flush((2.0 * generator_.next() - 1.0 - state) * filterCoefficient + state, kFlush);
            block[i] = state * level * scale * noiseTrim_;
        }
        filterState_ = state;
    }

    /// Shapes a block in place.
    void shape(double* block, int count);

    /// The rail's generator also gives the converter's jitter and the mute's taps.
    NoiseGenerator& generator() { return generator_; }

private:
    static constexpr double kFlush = 1e-16;

    NoiseGenerator generator_;
    double noiseTrim_;
    double filterState_ = 0.0;
    StripBiquad noiseTilt_{StripBiquadKind::HighShelf};
    StripBiquad noiseHum1_{StripBiquadKind::Peaking};
    StripBiquad noiseHum2_{StripBiquadKind::Peaking};
    StripBiquad noiseHum3_{StripBiquadKind::Peaking};
};

} // namespace velmora::preamp
