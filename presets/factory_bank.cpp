#include "presets/factory_bank.h"

#include "params/catalogue.h"
#include "presets/factory/factory_names.h"
#include "presets/factory/table_row.h"
#include "presets/factory_row.h"
#include "presets/preset.h"

#include <algorithm>
#include <optional>

namespace velmora {
namespace {

// Types of the fixed modules are variant / 16, which decodes to the same as variant / 15.
constexpr TypeValues variants(int input, int filters, int expander, int compressor, int eq, int limiter,
                              int output)
{
    return typeValues({input / 16.0, filters / 16.0, expander / 16.0, compressor / 16.0, eq / 16.0,
                       limiter / 16.0, output / 16.0, 0.0, 0.0});
}

constexpr TypeValues kScratch = variants(1, 0, 0, 0, 0, 0, 1);
constexpr TypeValues kDrums = variants(3, 1, 2, 2, 1, 1, 1);
constexpr TypeValues kBass = variants(2, 1, 0, 1, 2, 1, 1);
constexpr TypeValues kGuitar = variants(3, 2, 0, 2, 1, 0, 1);
constexpr TypeValues kKeys = variants(2, 1, 0, 1, 3, 0, 1);
constexpr TypeValues kStrings = variants(1, 1, 0, 1, 2, 0, 1);
constexpr TypeValues kWind = variants(2, 1, 0, 1, 1, 0, 1);
constexpr TypeValues kSpecial = variants(1, 3, 0, 3, 0, 0, 1);
constexpr TypeValues kBroadcast = variants(3, 1, 1, 1, 1, 1, 1);

constexpr const RoleWindow& kInput = roleWindow(Role::Input);
constexpr const RoleWindow& kFilters = roleWindow(Role::Filters);
constexpr const RoleWindow& kCompressor = roleWindow(Role::Compressor);

constexpr auto kVocal = [] {
    std::array<FactoryValue, kRoleCount + 3> values{};
    std::ranges::copy(variants(3, 2, 0, 1, 3, 1, 1), values.begin());
    values[kRoleCount] = {kFilters.windowBase + 25, 0.301};         // HPF Freq: 80 Hz
    values[kRoleCount + 1] = {kCompressor.windowBase + 16, 0.6667}; // Attack: 10 ms
    values[kRoleCount + 2] = {kCompressor.windowBase + 18, 0.44};   // Threshold: -18 dB
    return values;
}();

// Input and Filters change places, so that the Positions stay a permutation.
constexpr FactoryValue kStart[] = {
    {kProcessId, 1.0},
    {kInput.windowBase + kTypeOffset, 0.25},
    {kInput.windowBase + kPositionOffset, 0.125},
    {kFilters.windowBase + kPositionOffset, 0.0},
};

constexpr DefaultsRow kDefaultsRows[] = {
    {1, kScratch},          {2, kDrums},  {113, kBass},  {133, kGuitar},  {151, kKeys},
    {169, kStrings},        {175, kWind}, {184, kVocal}, {219, kSpecial}, {kBroadcastInitId, kBroadcast},
    {kStartInitId, kStart},
};

constexpr std::array<std::string_view, kCategoryCount> kCategoryNames{"Drums",   "Bass", "Guitar", "Keys",
                                                                      "Strings", "Wind", "Vocals", "Special"};

/// Presets `first` to `last` belong to a category.
struct CategoryRange {
    std::uint32_t first;
    std::uint32_t last;
    std::int32_t category;
};

constexpr CategoryRange kCategoryRanges[] = {
    {3, 85, 0},    {86, 86, 4},   {87, 112, 0},
    {114, 123, 1}, {124, 124, 3}, {125, 132, 1},
    {134, 150, 2}, {152, 168, 3}, {170, 174, 4},
    {176, 183, 5}, {185, 186, 6}, {187, 187, 2},
    {188, 188, 7}, {189, 218, 6}, {220, 223, 7},
    {226, 227, 0}, {228, 232, 7}, {kStartInitId, kStartInitId, 7},
};

std::optional<std::int32_t> categoryOf(std::uint32_t id)
{
    for (const CategoryRange& range : kCategoryRanges)
        if (id >= range.first && id <= range.last) return range.category;
    return std::nullopt;
}

std::string_view nameOf(std::uint32_t id)
{
    if (id < kFactoryNames.size()) return kFactoryNames[id];
    return id == kBroadcastInitId ? "Broadcast Init" : "Init";
}

const FactoryTableRow* findTableRow(std::uint32_t id)
{
    const auto table = factoryTable();
    const auto found = std::ranges::lower_bound(table, id, {}, &FactoryTableRow::id);
    return found != table.end() && found->id == id ? &*found : nullptr;
}

void fillFromTable(const FactoryTableRow& row, double* values)
{
    const auto ids = factoryIds();
    for (std::size_t i = 0; i < ids.size(); ++i)
        if (row.values[i] != kLeftAlone) values[ids[i]] = row.values[i] / kTableSteps;
}

void fillFromDefaults(std::uint32_t id, double* values)
{
    for (ParameterId p = 0; p < kHostParameterCount; ++p) values[p] = defaultValue(p);
    const auto* const row = std::ranges::find(kDefaultsRows, id, &DefaultsRow::id);
    if (row == std::end(kDefaultsRows)) return;
    for (const FactoryValue& entry : row->values) values[entry.id] = entry.value;
}

} // namespace

void factoryPreset(std::uint32_t id, double* values, char* name, PresetOrigin* origin)
{
    const FactoryTableRow* const row = findTableRow(id);
    if (name) std::ranges::copy(makePresetName(nameOf(id)), name);
    if (values) {
        if (row)
            fillFromTable(*row, values);
        else
            fillFromDefaults(id, values);
    }
    if (origin) {
        if (const auto category = categoryOf(id)) origin->category = *category;
        origin->designer = row ? row->designer : id == kStartInitId ? 0 : kHouseDesigner;
    }
}

void factoryCategoryName(std::uint32_t category, char* text)
{
    const std::string_view name = category < kCategoryCount ? kCategoryNames[category] : std::string_view();
    *std::ranges::copy(name, text).out = '\0';
}

} // namespace velmora
