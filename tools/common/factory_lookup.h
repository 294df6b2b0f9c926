#pragma once

#include "presets/factory_bank.h"
#include "presets/preset.h"

#include <cstdint>
#include <string>
#include <vector>

namespace velmora {

/// A factory preset as a user sees it listed. Texts are empty where it has none.
struct FactoryListing {
    std::uint32_t id;
    std::string name;
    std::string category;
    std::string designer;
};

FactoryListing factoryListing(std::uint32_t id);
std::vector<FactoryListing> factoryListings();

/// Finds a preset by its id or its name, letter case aside. Throws UserError: for a name of several presets
/// with the candidates, for an unknown one with the nearest.
std::uint32_t findFactoryPreset(const std::string& nameOrId);

} // namespace velmora
