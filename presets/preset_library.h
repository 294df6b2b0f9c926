#pragma once

#include "platform/debug_output.h"
#include "presets/preset.h"
#include "presets/preset_lists.h"

#include <array>
#include <atomic>
#include <cstdint>
#include <mutex>
#include <optional>
#include <string>

namespace velmora {

/// The factory preset of an id; what it doesn't set has its default.
Preset makeFactoryPreset(std::uint32_t id);

/// What stands behind a cell of the lists.
struct ListedPreset {
    std::int32_t factoryId; ///< -1: a file
    std::string name;       ///< of the factory preset, or of the file without its extension, as UTF-8
    std::string path;       ///< of the file, empty for a factory preset
};

/// The preset lists and what they lead to. Main threads of several instances share one library; a lock keeps
/// their scans apart. Not for the audio thread.
class PresetLibrary {
public:
    /// Makes the user's folder, level by level, and builds the lists. What can't be made or read isn't
    /// reported. @param profileFolder absolute; empty without a home, then nothing is made.
    explicit PresetLibrary(const std::string& profileFolder, DebugOutput output = debugOutput);

    /// Lists the user's files anew.
    void scanUserFolder();

    /// `Documents/Qorvane/User Presets/QOR Velmora` below the profile folder.
    const std::string& userRoot() const { return userRoot_; }
    /// The user's folder that a preset was last chosen from, -1 for none.
    std::int32_t currentFolderIndex() const { return currentFolderIndex_; }

    /// @return number of folders that the lists show; 0 for a group that doesn't exist.
    std::int32_t folderCount(std::int32_t group) const;
    /// @return 0 for a folder that doesn't exist.
    std::int32_t entryCount(std::int32_t group, std::int32_t folder) const;
    std::optional<ListedPreset> findEntry(std::int32_t group, std::int32_t folder, std::int32_t entry) const;

    /// Texts of the lists, empty for what doesn't exist. A cell is "07. " and at most 32 bytes of a name.
    std::string folderName(std::int32_t group, std::int32_t folder) const;
    std::string cellName(std::int32_t group, std::int32_t folder, std::int32_t entry) const;
    /// Reads an entry's stored values into `out` and gives it the entry's name. @return false, the values
    /// left alone and the name "error loading preset", if there is no such entry or its file is no preset.
    bool loadEntry(std::int32_t group, std::int32_t folder, std::int32_t entry, Preset* out);

private:
    const PresetFolder* findFolder(std::int32_t group, std::int32_t folder) const;

    const DebugOutput output_;
    const std::string userRoot_;
    mutable std::mutex mutex_; // guards groups_
    std::array<PresetGroup, kPresetGroups> groups_;
    std::atomic<std::int32_t> currentFolderIndex_{-1};
};

/// The library of this process, made when it is first asked for.
PresetLibrary& initPresetLibrary();

/// Opens a folder in the system's file browser, and tells the user if that fails.
void showFolder(const std::string& path);

} // namespace velmora
