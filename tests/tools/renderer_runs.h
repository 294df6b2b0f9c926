#pragma once

#include "tests/support/program.h"
#include "tests/support/signals.h"

#include <string>
#include <vector>

namespace velmora::test {

/// A recording as its channels.
struct Recording {
    int rate = 48000;
    std::vector<Signal> channels;
};

/// Writes a recording as 32-bit float WAV, or 24-bit FLAC by the name's ending.
void writeRecording(const std::string& path, const Recording& recording);
Recording readRecording(const std::string& path);
void writeText(const std::string& path, const std::string& text);

/// Runs the built renderer.
ProgramResult render(const std::vector<std::string>& arguments);

} // namespace velmora::test
