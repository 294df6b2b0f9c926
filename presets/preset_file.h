#pragma once

#include "presets/preset_block.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

inline constexpr std::string_view kPresetExtension = ".qor";

/// What became of a preset file that was to be read.
enum class PresetFileStatus {
    Loaded,
    Unreadable,      ///< missing, a folder, write-protected, or far too large
    NotAPreset,      ///< no known magic
    Bank,            ///< a bank or an unknown kind, where one preset is expected
    Truncated,       ///< the end is missing
    Damaged,         ///< a count or length that can't be
    ValueOutOfRange, ///< a value outside 0..1
    Incomplete,      ///< well formed, but without the Process value that every preset has
};

/// One line for a user, without the file's name.
std::string_view presetFileStatusText(PresetFileStatus status);

/// Reads the bytes of a preset file in either byte order, of this program or its stereo sibling. What they
/// don't hold stays in `preset` as the caller filled it in. Unless the result is Loaded or Incomplete,
/// `preset` is left alone.
/// @param swapMode not 0: read against the byte order that the magic tells.
PresetFileStatus readPresetBlock(std::span<const std::uint8_t> block, int swapMode, Preset* preset);

/// The same from a file, which has to be writable.
PresetFileStatus loadPresetFile(const std::string& path, int swapMode, Preset* preset);

/// The bytes of a preset file.
std::vector<std::uint8_t> writePresetBlock(const Preset& preset, const BlockSettings& settings = {});

/// Writes a preset file; an older one of the name stays whole until the new one is. @return false if it can't
/// be written.
bool savePresetFile(const std::string& path, const Preset& preset, const BlockSettings& settings = {});

/// The path of a preset by name below a folder. @param subfolder may be empty.
std::string presetFilePath(std::string_view root, std::string_view subfolder, std::string_view name);

} // namespace velmora
