#include "presets/factory_bank.h"
#include "presets/preset.h"
#include "presets/preset_lists.h"

#include <array>
#include <utility>

namespace velmora {
namespace {

constexpr std::int32_t kListedPresets = 235;

using FolderName = std::string (*)(std::uint32_t index);

/// Folder 0 holds all presets, folder n those of which `place` is n - 1. The first name that is empty ends
/// the folders.
PresetGroup listPresets(FolderName nameOf, std::int32_t PresetOrigin::*place)
{
    PresetGroup group;
    group.folders.push_back({.name = std::string(kAllFolderName), .entries = {}});
    for (std::uint32_t n = 0; n <= kMostSubfolders; ++n) {
        std::string name = nameOf(n);
        if (name.empty()) break;
        group.folders.push_back({.name = std::move(name), .entries = {}});
    }
    for (std::int32_t id = 0; id < kListedPresets; ++id) {
        PresetName name{};
        PresetOrigin origin;
        factoryPreset(static_cast<std::uint32_t>(id), nullptr, name.data(), &origin);
        if (name[0] == '\0') continue;
        const PresetEntry entry{.factoryId = id, .fileName = {}, .folderIndex = -1};
        group.folders[0].entries.push_back(entry);
        const auto folder = static_cast<std::size_t>(origin.*place + 1);
        if (origin.*place >= 0 && folder < group.folders.size())
            group.folders[folder].entries.push_back(entry);
    }
    return group;
}

std::string categoryName(std::uint32_t category)
{
    std::array<char, 64> text{};
    factoryCategoryName(category, text.data());
    return text.data();
}

std::string designerName(std::uint32_t index)
{
    FactoryDesigner designer;
    factoryDesigner(index, &designer);
    return designer.name.data();
}

} // namespace

PresetGroup factoryPresetsByCategory()
{
    return listPresets(categoryName, &PresetOrigin::category);
}

PresetGroup factoryPresetsByDesigner()
{
    return listPresets(designerName, &PresetOrigin::designer);
}

} // namespace velmora
