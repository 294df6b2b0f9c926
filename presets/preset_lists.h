#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// The three lists that a preset is chosen from: factory presets by category, by designer, and the user's
/// files.
namespace velmora {

inline constexpr std::int32_t kGroupApplication = 0;
inline constexpr std::int32_t kGroupDesigner = 1;
inline constexpr std::int32_t kGroupUser = 2;
inline constexpr std::int32_t kPresetGroups = 3;

inline constexpr std::int32_t kMainFolderIndex = 127; ///< the user's main folder; the lists don't show it
inline constexpr std::size_t kMostSubfolders = 126;   ///< behind "All", in front of the main folder
inline constexpr std::size_t kMostEntries = 512;      ///< of a folder; further presets aren't listed
inline constexpr std::string_view kAllFolderName = "All";

struct PresetEntry {
    std::int32_t factoryId = -1;   ///< -1: a file
    std::string fileName;          ///< a file's full name without the extension, any bytes
    std::int32_t folderIndex = -1; ///< of a file: its folder in the user's group, 0 the main folder
};

struct PresetFolder {
    std::string name;
    std::vector<PresetEntry> entries;
};

/// Folder 0 is "All".
struct PresetGroup {
    std::vector<PresetFolder> folders;
    PresetFolder mainFolder; ///< of the user's group

    /// @return null for an index that holds no folder.
    const PresetFolder* find(std::int32_t index) const
    {
        if (index >= 0 && static_cast<std::size_t>(index) < folders.size())
            return &folders[static_cast<std::size_t>(index)];
        return index == kMainFolderIndex && !mainFolder.name.empty() ? &mainFolder : nullptr;
    }
};

/// Folders of the factory's categories and designers, their presets in the order of their ids.
PresetGroup factoryPresetsByCategory();
PresetGroup factoryPresetsByDesigner();

using DebugOutput = void (*)(std::string_view line);

/// Lists the `.qor` files of a folder and of its subfolders, one level deep, sorted by name. What can't be
/// read is left out: with a missing folder there is just an empty "All". Of too many files or folders the
/// first by name are kept.
PresetGroup scanUserPresets(const std::string& root, DebugOutput output);

} // namespace velmora
