#pragma once

#include "modules/input/biased_stage.h"
#include "modules/input/component_spread.h"
#include "modules/input/decade_constants.h"
#include "modules/input/noise_shaper.h"
#include "modules/input/rail_section.h"
#include "modules/input/transistor_stage.h"

namespace velmora::preamp {

/// An analog decade as one unit builds it, at a sample rate: its circuits designed, so that a change of
/// decade only takes them over.
struct DecadeDesign {
    const DecadeConstants* constants = nullptr;
    BiasedStage::Coefficients stage1;
    TransistorStage::Coefficients transistor;
    double noiseFilterCoefficient = 0.0; ///< per sample
    NoiseShaper::Designs noise;
    RailDesigns bandwidth, crosstalk, bump;
};

/// @param emulation kPre60s, kPre70s or kPre80s. @param sampleRate in Hz
DecadeDesign designDecade(std::int32_t emulation, const ComponentSpread& spread, double sampleRate);

} // namespace velmora::preamp
