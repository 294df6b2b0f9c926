#pragma once

#include "modules/input/component_spread.h"

#include <cstdint>

namespace velmora::preamp {

/// Console emulations by their Type index.
inline constexpr std::int32_t kPre60s = 2;
inline constexpr std::int32_t kPre70s = 3;
inline constexpr std::int32_t kPre80s = 4;
inline constexpr std::int32_t kAdc90s = 5;

/// A nominal value and the tolerance that a built unit's value has.
struct ToleratedValue {
    double nominal;
    TolerancePair pair = TolerancePair::None;

    double of(const ComponentSpread& spread, int rail) const { return nominal * spread.factor(pair, rail); }
};

/// Bell of the noise shaping: a line of mains hum or the rise below it.
struct HumPeak {
    ToleratedValue frequency; ///< Hz
    ToleratedValue q;
    ToleratedValue gainDb;
};

/// First stage of the 60s and 70s.
struct BiasedStageConstants {
    double saturationA;
    double saturationB;
    double inGain;
    double outGain;
    double slowW; ///< rad/s, low-pass of the signal that moves the bias
};

/// What sets one analog decade apart from the others.
struct DecadeConstants {
    BiasedStageConstants stage1; ///< unused by the 80s
    double stage2InGain;
    double stage2OutGain;
    double stage2MakeUp;    ///< linear, the clipper's gain behind its high-pass
    double saturationMeter; ///< meter reading per level in front of the second stage
    bool biased;            ///< the clipper's even-harmonic stage has a bias

    double noiseScale;   ///< linear, at 44100 Hz
    double noiseFilterW; ///< rad/s
    double harmonicW;    ///< rad/s, low-pass of the even-harmonic stage
    double tiltFrequency;
    double tiltQ;
    double tiltGainDb; ///< times the square root of the first tolerance
    HumPeak hum1, hum2, hum3;

    double bandwidthFrequency; ///< Hz
    double filteredMix;
    double directMix;
    double crosstalkFrequency, crosstalkQ, crosstalkAmount;
    double bumpFrequency, bumpQ, bumpGainDb;
};

/// @param emulation kPre60s, kPre70s or kPre80s.
const DecadeConstants& decadeConstants(std::int32_t emulation);

} // namespace velmora::preamp
