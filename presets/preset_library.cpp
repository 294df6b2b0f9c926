#include "presets/preset_library.h"

#include "params/catalogue.h"
#include "platform/shell.h"
#include "platform/user_folders.h"
#include "presets/factory_bank.h"
#include "presets/list_text.h"
#include "presets/preset_file.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

namespace velmora {
namespace {

constexpr std::string_view kErrorName = "error loading preset";
constexpr std::string_view kRootLevels[] = {"/Documents", "/Qorvane", "/User Presets", "/QOR Velmora"};

constexpr std::size_t kShownFolderName = 67; // bytes
constexpr std::size_t kShownFileName = 63;
constexpr std::size_t kShownCellName = 32;

std::string prepareUserRoot(std::string path)
{
    const bool hasHome = path.starts_with('/');
    for (const std::string_view level : kRootLevels) {
        path += level;
        std::error_code ignored;
        if (hasHome) std::filesystem::create_directory(path, ignored);
    }
    return path;
}

std::string nameOf(const PresetEntry& entry)
{
    if (entry.factoryId < 0) return shownText(entry.fileName, kShownFileName);
    PresetName name{};
    factoryPreset(static_cast<std::uint32_t>(entry.factoryId), nullptr, name.data(), nullptr);
    return name.data();
}

/// @return nothing if the file is no preset.
std::optional<Preset> readPreset(const ListedPreset& listed)
{
    if (listed.factoryId >= 0) return makeFactoryPreset(static_cast<std::uint32_t>(listed.factoryId));
    Preset preset = makeFactoryPreset(0);
    if (loadPresetFile(listed.path, 0, &preset) != PresetFileStatus::Loaded) return std::nullopt;
    return preset;
}

} // namespace

Preset makeFactoryPreset(std::uint32_t id)
{
    Preset preset;
    std::array<double, kHostParameterCount> values{};
    for (ParameterId p = 0; p < kHostParameterCount; ++p)
        values[static_cast<std::size_t>(p)] = defaultValue(p);
    factoryPreset(id, values.data(), preset.name.data(), nullptr);
    std::ranges::transform(values, preset.values.begin(), [](double v) { return static_cast<float>(v); });
    return preset;
}

PresetLibrary::PresetLibrary(const std::string& profileFolder, DebugOutput output)
    : output_(output),
      userRoot_(prepareUserRoot(profileFolder)),
      groups_{factoryPresetsByCategory(), factoryPresetsByDesigner(), scanUserPresets(userRoot_, output)}
{
}

void PresetLibrary::scanUserFolder()
{
    PresetGroup scanned = scanUserPresets(userRoot_, output_);
    const std::lock_guard lock(mutex_);
    groups_[kGroupUser] = std::move(scanned);
}

const PresetFolder* PresetLibrary::findFolder(std::int32_t group, std::int32_t folder) const
{
    if (group < 0 || group >= kPresetGroups) return nullptr;
    return groups_[static_cast<std::size_t>(group)].find(folder);
}

std::int32_t PresetLibrary::folderCount(std::int32_t group) const
{
    const std::lock_guard lock(mutex_);
    if (group < 0 || group >= kPresetGroups) return 0;
    return static_cast<std::int32_t>(groups_[static_cast<std::size_t>(group)].folders.size());
}

std::int32_t PresetLibrary::entryCount(std::int32_t group, std::int32_t folder) const
{
    const std::lock_guard lock(mutex_);
    const PresetFolder* found = findFolder(group, folder);
    return found ? static_cast<std::int32_t>(found->entries.size()) : 0;
}

std::optional<ListedPreset> PresetLibrary::findEntry(std::int32_t group, std::int32_t folder,
                                                     std::int32_t entry) const
{
    const std::lock_guard lock(mutex_);
    const PresetFolder* shown = findFolder(group, folder);
    if (!shown || entry < 0 || static_cast<std::size_t>(entry) >= shown->entries.size()) return std::nullopt;
    const PresetEntry& found = shown->entries[static_cast<std::size_t>(entry)];
    std::string path;
    if (found.factoryId < 0) {
        const PresetFolder* subfolder =
            found.folderIndex > 0 ? findFolder(kGroupUser, found.folderIndex) : nullptr;
        path = presetFilePath(userRoot_, subfolder ? subfolder->name : "", found.fileName);
    }
    return ListedPreset{found.factoryId, nameOf(found), std::move(path)};
}

std::string PresetLibrary::folderName(std::int32_t group, std::int32_t folder) const
{
    const std::lock_guard lock(mutex_);
    const PresetFolder* found = findFolder(group, folder);
    return found ? shownText(found->name, kShownFolderName) : std::string();
}

std::string PresetLibrary::cellName(std::int32_t group, std::int32_t folder, std::int32_t entry) const
{
    const std::optional<ListedPreset> found = findEntry(group, folder, entry);
    if (!found) return {};
    std::string text = entry < 10 ? "0" : "";
    text += std::to_string(entry);
    return text.append(". ").append(shownText(found->name, kShownCellName));
}

bool PresetLibrary::loadEntry(std::int32_t group, std::int32_t folder, std::int32_t entry, Preset* out)
{
    const std::optional<ListedPreset> found = findEntry(group, folder, entry);
    if (found && group == kGroupUser) currentFolderIndex_ = folder;
    const std::optional<Preset> loaded = found ? readPreset(*found) : std::nullopt;
    out->name = makePresetName(loaded ? std::string_view(found->name) : kErrorName);
    if (!loaded) return false;
    for (ParameterId id = 0; id < kHostParameterCount; ++id)
        if (isStored(id))
            out->values[static_cast<std::size_t>(id)] = loaded->values[static_cast<std::size_t>(id)];
    return true;
}

PresetLibrary& initPresetLibrary()
{
    static PresetLibrary library(profileFolder());
    return library;
}

void showFolder(const std::string& path)
{
    const int result = openPath(path);
    if (result <= kOpenLastFailure && result != kOpenNoProgram)
        showMessage("Could not open user's preset folder", path);
}

} // namespace velmora
