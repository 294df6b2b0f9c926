#pragma once

#include "tests/support/instruments.h"

#include <cstdint>
#include <vector>

/// Listens to the factory presets on the instruments that their names tell.
namespace velmora::test {

inline constexpr double kSoundRate = 48000.0;

/// Levels in dB re full scale.
struct SoundFigures {
    double inputRms;
    double outputRms;
    double outputPeak;
    bool finite;

    double change() const { return outputRms - inputRms; }
};

/// The instruments that a preset is meant for.
std::vector<Instrument> instrumentsFor(std::uint32_t id);
/// The preset's answer to an instrument, in double precision at 48 kHz, the first pass unheard so that slow
/// detectors have settled.
SoundFigures listenTo(std::uint32_t id, Instrument instrument);

} // namespace velmora::test
