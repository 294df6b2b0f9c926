#include "modules/input/decade_constants.h"

#include <array>

namespace velmora::preamp {

namespace {

using enum TolerancePair;

constexpr std::array<DecadeConstants, 3> kDecades{{
    {
        // 60s
        .stage1 = {.saturationA = 0.7,
                   .saturationB = 0.3,
                   .inGain = 0.28284,
                   .outGain = 3.5355,
                   .slowW = 169.64600329384882}, // 27 Hz
        .stage2InGain = 0.176775,
        .stage2OutGain = 5.656908499505021,
        .stage2MakeUp = 1.0,
        .saturationMeter = 0.10750000178813934,
        .biased = false,
        .noiseScale = 0.7553700000000001,
        .noiseFilterW = 72256.63103256524, // 11500 Hz
        .harmonicW = 18849.55592153876,    // 3000 Hz
        .tiltFrequency = 1800.0,
        .tiltQ = 0.2,
        .tiltGainDb = -8.0,
        .hum1 = {{45.0, T56}, {0.7, T78}, {14.0, T34}},
        .hum2 = {{60.0}, {7.0, T34}, {14.0, T56}},
        .hum3 = {{100.0, T34}, {7.0, T56}, {10.0, T78}},
        .bandwidthFrequency = 18000.0,
        .filteredMix = 0.75,
        .directMix = 0.25,
        .crosstalkFrequency = 1400.0,
        .crosstalkQ = 1.0,
        .crosstalkAmount = 0.0315 * 0.5,
        .bumpFrequency = 33.0,
        .bumpQ = 0.33,
        .bumpGainDb = 2.2,
    },
    {
        // 70s
        .stage1 = {.saturationA = 0.5,
                   .saturationB = 0.6,
                   .inGain = 0.35,
                   .outGain = 2.857142857142857,
                   .slowW = 81.68140899333463}, // 13 Hz
        .stage2InGain = 0.06124999999999999,
        .stage2OutGain = 16.0,
        .stage2MakeUp = 1.0,
        .saturationMeter = 1.399999976158142,
        .biased = true,
        .noiseScale = 0.83,
        .noiseFilterW = 94247.7796076938, // 15000 Hz
        .harmonicW = 18849.55592153876,
        .tiltFrequency = 1000.0,
        .tiltQ = 0.25,
        .tiltGainDb = -8.0,
        .hum1 = {{40.0, T78}, {0.8, T34}, {10.0, T56}},
        .hum2 = {{60.0}, {7.0, T56}, {15.0, T78}},
        .hum3 = {{100.0, T56}, {7.0, T78}, {9.0, T34}},
        .bandwidthFrequency = 21000.0,
        .filteredMix = 0.5,
        .directMix = 0.5,
        .crosstalkFrequency = 2400.0,
        .crosstalkQ = 0.7,
        .crosstalkAmount = 0.01 * 0.7,
        .bumpFrequency = 22.0,
        .bumpQ = 0.42,
        .bumpGainDb = 2.5,
    },
    {
        // 80s
        .stage1 = {},
        .stage2InGain = 0.06,
        .stage2OutGain = 16.666666666666668,
        .stage2MakeUp = 1.258925411794167, // 2 dB
        .saturationMeter = 1.6800000667572021,
        .biased = false,
        .noiseScale = 0.627,
        .noiseFilterW = 97389.37226128358, // 15500 Hz
        .harmonicW = 18849.55592153876,
        .tiltFrequency = 1000.0,
        .tiltQ = 0.3,
        .tiltGainDb = -6.0,
        .hum1 = {{35.0, T34}, {0.8, T56}, {6.0, T78}},
        .hum2 = {{60.0}, {7.0, T78}, {7.0, T34}},
        .hum3 = {{100.0, T78}, {7.0, T34}, {4.0, T56}},
        .bandwidthFrequency = 22000.0,
        .filteredMix = 0.35,
        .directMix = 0.65,
        .crosstalkFrequency = 7400.0,
        .crosstalkQ = 0.5,
        .crosstalkAmount = 0.002,
        .bumpFrequency = 28.0,
        .bumpQ = 0.7,
        .bumpGainDb = 0.5,
    },
}};

} // namespace

const DecadeConstants& decadeConstants(std::int32_t emulation)
{
    return kDecades[static_cast<unsigned>(emulation - kPre60s)];
}

} // namespace velmora::preamp
