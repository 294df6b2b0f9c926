#pragma once

#include "tests/support/signals.h"

#include <array>
#include <string_view>

/// Instruments as a close microphone hears them, made by code: what the factory presets are listened to with.
namespace velmora::test {

enum class Instrument {
    Kick,
    Snare,
    HiHat,
    Toms,
    Overheads,
    Room,
    DrumKit,
    Bass,
    PickedGuitar,
    StrummedGuitar,
    Piano,
    Pad,
    Strings,
    Brass,
    MaleVoice,
    FemaleVoice,
    FullMix
};

inline constexpr std::array<std::string_view, 17> kInstrumentNames{
    "kick",    "snare", "hi-hat",     "toms",         "overheads", "room",
    "kit",     "bass",  "gtr picked", "gtr strm",     "piano",     "pad",
    "strings", "brass", "male voice", "female voice", "full mix"};

/// About three seconds with a peak of -6 dBFS, the same on every run.
Signal playInstrument(Instrument instrument, double sampleRate);

} // namespace velmora::test
