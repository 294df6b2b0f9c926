#include "presets/factory_bank.h"

#include "params/catalogue.h"
#include "presets/factory_row.h"
#include "presets/preset.h"

#include <algorithm>

namespace velmora {
namespace {

// Types of the fixed modules are variant / 15 or what decodes to the same, in the order Input, Filters,
// Expander, Compressor, Eq, Limiter, Output, Insert X, Insert Y.
constexpr TypeValues kScratchTypes = typeValues({0.0625, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0625, 0.0, 0.0});
constexpr TypeValues kDrumsTypes =
    typeValues({0.1875, 0.0625, 0.125, 0.125, 0.0625, 0.0625, 0.0625, 0.0, 0.0});
constexpr TypeValues kBroadcastTypes =
    typeValues({0.1875, 0.0625, 0.0625, 0.0625, 0.0625, 0.0625, 0.0625, 0.0, 0.0});

// Input and Filters change places, so that the Positions stay a permutation.
constexpr const RoleWindow& kInput = roleWindow(Role::Input);
constexpr const RoleWindow& kFilters = roleWindow(Role::Filters);
constexpr FactoryValue kStartValues[] = {
    {kProcessId, 1.0},
    {kInput.windowBase + kTypeOffset, 0.25},
    {kInput.windowBase + kPositionOffset, 0.125},
    {kFilters.windowBase + kPositionOffset, 0.0},
};

constexpr FactoryRow kBank[] = {
    {"Default", kNoCategory, kHouseDesigner, true, {}},
    {"Let's start from scratch", kNoCategory, kHouseDesigner, true, kScratchTypes},
    {"Drums Init", kNoCategory, kHouseDesigner, true, kDrumsTypes},
};

constexpr FactoryRow kInit{"Init", kNoCategory, kHouseDesigner, true, {}};
constexpr FactoryRow kBroadcastInit{"Broadcast Init", kNoCategory, kHouseDesigner, true, kBroadcastTypes};
constexpr FactoryRow kStartInit{"Init", kSpecialCategory, 0, true, kStartValues};

const FactoryRow& findRow(std::uint32_t id)
{
    if (id < std::size(kBank)) return kBank[id];
    if (id == kBroadcastInitId) return kBroadcastInit;
    if (id == kStartInitId) return kStartInit;
    return kInit;
}

void fillValues(const FactoryRow& row, double* values)
{
    if (row.startsFromDefaults)
        for (ParameterId id = 0; id < kHostParameterCount; ++id) values[id] = defaultValue(id);
    for (const FactoryValue& entry : row.values) values[entry.id] = entry.value;
}

} // namespace

std::uint32_t factoryPresetCount()
{
    return static_cast<std::uint32_t>(std::size(kBank));
}

void factoryPreset(std::uint32_t id, double* values, char* name, PresetOrigin* origin)
{
    const FactoryRow& row = findRow(id);
    if (name) std::ranges::copy(makePresetName(row.name), name);
    if (values) fillValues(row, values);
    if (origin) {
        if (row.category != kNoCategory) origin->category = row.category;
        origin->designer = row.designer;
    }
}

} // namespace velmora
