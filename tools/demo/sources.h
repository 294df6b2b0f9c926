#pragma once

#include <cstdint>
#include <vector>

/// Dry test material from code, one channel each, samples around +-0.5. The same on every run.
namespace velmora::demo {

using Samples = std::vector<double>;

/// A voice: breaths, voiced syllables with moving formants and pitch, sibilants. About 4.4 seconds.
Samples makeVoice(double sampleRate);

/// A drum pattern of two bars: kick, snare, hi-hat. About 4.4 seconds.
Samples makeDrums(double sampleRate);

} // namespace velmora::demo
