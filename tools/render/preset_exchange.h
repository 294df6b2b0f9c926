#pragma once

#include "presets/preset.h"

#include <cstdint>
#include <filesystem>
#include <span>
#include <vector>

namespace velmora::render {

/// The values that the state chunk of a plug-in holds. Throws UserError if the bytes are no state of the
/// strip.
Preset presetOfChunk(std::span<const std::uint8_t> chunk);

/// The preset of a file. Throws UserError for a file that is no preset.
Preset readPresetFile(const std::filesystem::path& path);

/// A state chunk like `chunk`, but with the values of a preset.
std::vector<std::uint8_t> chunkWithPreset(std::span<const std::uint8_t> chunk, const Preset& preset);

} // namespace velmora::render
