#include "presets/list_text.h"
#include "presets/preset_file.h"
#include "presets/preset_lists.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace velmora {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kMainFolderName = "#MAIN FOLDER";

/// Visits what a folder holds. What fails ends the walk: a folder may go away at any moment.
template <typename Visit>
void walk(const std::string& folder, Visit visit)
{
    std::error_code error;
    for (fs::directory_iterator entry(folder, error); !error && entry != fs::directory_iterator();
         entry.increment(error))
        visit(*entry, entry->path().filename().native());
}

std::vector<std::string> firstByName(std::vector<std::string> names, std::size_t most)
{
    std::ranges::sort(names, namePrecedes);
    if (names.size() > most) names.resize(most);
    return names;
}

std::vector<std::string> listSubfolders(const std::string& root)
{
    std::vector<std::string> names;
    walk(root, [&](const fs::directory_entry& entry, const std::string& name) {
        std::error_code error;
        if (!name.starts_with('.') && entry.is_directory(error)) names.push_back(name);
    });
    return firstByName(std::move(names), kMostSubfolders);
}

PresetFolder listFiles(const std::string& path, std::string_view folderName, std::int32_t folderIndex)
{
    std::vector<std::string> names;
    walk(path, [&](const fs::directory_entry& entry, const std::string& name) {
        std::error_code error;
        if (name.size() > kPresetExtension.size() && name.ends_with(kPresetExtension) &&
            entry.is_regular_file(error))
            names.push_back(name.substr(0, name.size() - kPresetExtension.size()));
    });
    PresetFolder folder{.name = std::string(folderName), .entries = {}};
    for (std::string& name : firstByName(std::move(names), kMostEntries))
        folder.entries.push_back({.factoryId = -1, .fileName = std::move(name), .folderIndex = folderIndex});
    return folder;
}

/// Adds as many entries of `folder` as "All" has room for.
void addTo(PresetFolder& all, const PresetFolder& folder)
{
    const std::size_t count = std::min(folder.entries.size(), kMostEntries - all.entries.size());
    all.entries.insert(all.entries.end(), folder.entries.begin(),
                       folder.entries.begin() + static_cast<std::ptrdiff_t>(count));
}

bool entryPrecedes(const PresetEntry& a, const PresetEntry& b)
{
    if (a.fileName == b.fileName) return a.folderIndex < b.folderIndex;
    return namePrecedes(a.fileName, b.fileName);
}

} // namespace

PresetGroup scanUserPresets(const std::string& root, DebugOutput output)
{
    const auto scan = [&](const std::string& path, std::string_view name, std::int32_t index) {
        for (const std::string_view line :
             {std::string_view("Plugin's Main Preset Folder:"), std::string_view(root),
              std::string_view("Looking for *.qor files in:"), std::string_view(path)})
            output(std::string(line) + '\t');
        return listFiles(path, name, index);
    };
    PresetGroup group;
    group.folders.push_back({.name = std::string(kAllFolderName), .entries = {}});
    group.mainFolder = scan(root, kMainFolderName, 0);
    std::int32_t index = 0;
    for (const std::string& name : listSubfolders(root))
        group.folders.push_back(scan(root + '/' + name, name, ++index));

    PresetFolder& all = group.folders[0];
    addTo(all, group.mainFolder);
    for (std::size_t i = 1; i < group.folders.size(); ++i) addTo(all, group.folders[i]);
    std::ranges::sort(all.entries, entryPrecedes);
    return group;
}

} // namespace velmora
