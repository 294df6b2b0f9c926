#include "tools/presets/preset_list.h"

#include "presets/preset_library.h"
#include "tools/common/factory_lookup.h"
#include "tools/common/nearest_text.h"
#include "tools/common/user_error.h"

#include <algorithm>
#include <filesystem>
#include <iomanip>
#include <ostream>
#include <vector>

namespace velmora::presets_tool {

namespace {

constexpr int kIdWidth = 3;
constexpr int kNameWidth = 24;
constexpr int kCategoryWidth = 9;

using Field = std::string FactoryListing::*;

/// Throws UserError unless some preset has `wanted` in the field.
void requireKnown(const std::vector<FactoryListing>& all, Field field, const std::string& wanted,
                  const std::string& what)
{
    if (wanted.empty()) return;
    std::vector<std::string> known;
    for (const FactoryListing& listing : all) {
        if (sameLetters(listing.*field, wanted)) return;
        if (std::ranges::find(known, listing.*field) == known.end() && !(listing.*field).empty())
            known.push_back(listing.*field);
    }
    std::string names;
    for (const std::string& name : known) names += (names.empty() ? "" : ", ") + name;
    throw UserError("no " + what + " is called \"" + wanted + "\"; there are " + names);
}

bool passes(const std::string& value, const std::string& wanted)
{
    return wanted.empty() || sameLetters(value, wanted);
}

} // namespace

void listFactoryPresets(std::ostream& out, const std::string& category, const std::string& designer)
{
    const std::vector<FactoryListing> all = factoryListings();
    requireKnown(all, &FactoryListing::category, category, "category");
    requireKnown(all, &FactoryListing::designer, designer, "designer");
    for (const FactoryListing& listing : all) {
        if (!passes(listing.category, category) || !passes(listing.designer, designer)) continue;
        out << std::right << std::setw(kIdWidth) << listing.id << "  " << std::left << std::setw(kNameWidth)
            << listing.name << ' ' << std::setw(kCategoryWidth) << listing.category << ' ' << listing.designer
            << '\n';
    }
}

void listUserPresets(std::ostream& out)
{
    const PresetLibrary& library = initPresetLibrary();
    std::error_code error;
    if (std::filesystem::directory_iterator(library.userRoot(), error); error)
        throw UserError("the user's folder " + library.userRoot() + " can't be read (" + error.message() +
                        "); USERPROFILE or HOME must name a folder that can be written");
    const std::int32_t count = library.entryCount(kGroupUser, 0);
    for (std::int32_t entry = 0; entry < count; ++entry)
        if (const auto listed = library.findEntry(kGroupUser, 0, entry)) out << listed->path << '\n';
    if (count == 0) out << "no presets in " << library.userRoot() << '\n';
    if (count == std::int32_t{kMostEntries}) out << "no more than " << count << " are listed\n";
}

} // namespace velmora::presets_tool
