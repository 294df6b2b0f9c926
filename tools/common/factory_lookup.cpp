#include "tools/common/factory_lookup.h"

#include "presets/factory/factory_names.h"
#include "tools/common/nearest_text.h"
#include "tools/common/user_error.h"

#include <array>
#include <charconv>
#include <optional>

namespace velmora {

namespace {

std::optional<std::uint32_t> readId(const std::string& text)
{
    std::uint32_t id = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), id);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return id;
}

std::string describe(const FactoryListing& listing)
{
    std::string text = std::to_string(listing.id) + " (" + listing.category;
    if (!listing.designer.empty()) text += ", " + listing.designer;
    return text + ")";
}

} // namespace

FactoryListing factoryListing(std::uint32_t id)
{
    PresetName name{};
    PresetOrigin origin;
    factoryPreset(id, nullptr, name.data(), &origin);
    std::array<char, 64> category{};
    FactoryDesigner designer;
    if (origin.category >= 0)
        factoryCategoryName(static_cast<std::uint32_t>(origin.category), category.data());
    if (origin.designer >= 0) factoryDesigner(static_cast<std::uint32_t>(origin.designer), &designer);
    return {id, name.data(), category.data(), designer.name.data()};
}

std::vector<FactoryListing> factoryListings()
{
    std::vector<FactoryListing> all;
    all.reserve(kFactoryPresetCount);
    for (std::uint32_t id = 0; id < kFactoryPresetCount; ++id) all.push_back(factoryListing(id));
    return all;
}

std::uint32_t findFactoryPreset(const std::string& nameOrId)
{
    if (const std::optional<std::uint32_t> id = readId(nameOrId)) {
        if (*id < kFactoryPresetCount) return *id;
        throw UserError("there is no factory preset " + nameOrId + "; ids go from 0 to " +
                        std::to_string(kFactoryPresetCount - 1));
    }
    std::vector<FactoryListing> found;
    std::vector<std::string> names;
    for (FactoryListing& listing : factoryListings()) {
        names.push_back(listing.name);
        if (sameLetters(listing.name, nameOrId)) found.push_back(std::move(listing));
    }
    if (found.empty())
        throw UserError("no factory preset is called \"" + nameOrId + "\"; the nearest is \"" +
                        nearestText(nameOrId, names) + "\", velmora-presets list shows all");
    if (found.size() > 1) {
        std::string candidates;
        for (const FactoryListing& listing : found)
            candidates += (candidates.empty() ? "" : ", ") + describe(listing);
        throw UserError("several presets are called \"" + nameOrId +
                        "\", say which by its id: " + candidates);
    }
    return found.front().id;
}

} // namespace velmora
