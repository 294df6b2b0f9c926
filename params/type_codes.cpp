#include "params/type_codes.h"

#include <algorithm>
#include <array>

namespace velmora {

namespace {

using enum ModuleKind;

// clang-format off
constexpr std::array<ModuleType, 25> kTypes{{
    {1,   Preamp,     1,  "Gain",              "Gain"},
    {2,   Preamp,     2,  "Pre 60s",           "Pre 60s"},
    {3,   Preamp,     3,  "Pre 70s",           "Pre 70s"},
    {4,   Preamp,     4,  "Pre 80s",           "Pre 80s"},
    {5,   Preamp,     5,  "ADC 90s",           "ADC 90s"},
    {17,  Filters,    1,  "Basic Filters",     "Basic Filters"},
    {18,  Filters,    2,  "Pro Filters",       "Pro Filters"},
    {19,  Filters,    3,  "Filters Ext. s.c.", "S.C. Filters"},
    {33,  Dynamics,   1,  "Expander",          "Expander"},
    {34,  Dynamics,   2,  "Gate",              "Gate"},
    {35,  Dynamics,   3,  "Ducker",            "Ducker"},
    {49,  Compressor, 1,  "Opto Levelor",      "Opto Levelor"},
    {50,  Compressor, 2,  "FET Levelor",       "FET Levelor"},
    {51,  Compressor, 3,  "VCA Levelor",       "VCA Levelor"},
    {65,  Equalizer,  1,  "Sorrel",            "Sorrel"},
    {66,  Equalizer,  2,  "Tamarin",           "Tamarin"},
    {67,  Equalizer,  3,  "Juniper",           "Juniper"},
    {81,  Limiter,    1,  "Opto Lim",          "Opto Lim"},
    {82,  Limiter,    2,  "VCA Lim",           "VCA Lim"},
    {87,  Limiter,    7,  "BrickWall",         "BrickWall"},
    {92,  Limiter,    12, "Saturator",         "Saturator"},
    {97,  Output,     1,  "Master Control",    "Master Control"},
    {113, Special,    1,  "De-esser",          ""},
    {114, Special,    2,  "De-hummer",         ""},
    {115, Special,    3,  "Marlow",            ""},
}};
// clang-format on

static_assert(std::ranges::is_sorted(kTypes, {}, &ModuleType::code));
static_assert(std::ranges::all_of(kTypes, [](const ModuleType& type) {
    return type.code == (static_cast<std::int32_t>(type.kind) - 1) * 16 + type.variant;
}));

/// Panel titles of the seven fixed modules, by kind from the preamp on.
constexpr std::array<std::string_view, 7> kTitles{"PREAMP", "FILTERS", "GATE",   "COMPRESSOR",
                                                  "EQ",     "LIMITER", "CONTROL"};

constexpr std::string_view kNoName = "-";

} // namespace

std::span<const ModuleType> moduleTypes() noexcept
{
    return kTypes;
}

const ModuleType* findModuleType(std::int32_t code) noexcept
{
    const auto found = std::ranges::lower_bound(kTypes, code, {}, &ModuleType::code);
    return found != kTypes.end() && found->code == code ? &*found : nullptr;
}

ModuleKind moduleKind(std::int32_t code) noexcept
{
    if (code == 0) return None;
    const ModuleType* type = findModuleType(code);
    return type ? type->kind : Unknown;
}

std::string_view moduleTypeName(std::int32_t code) noexcept
{
    const ModuleType* type = findModuleType(code);
    return type ? type->listName : kNoName;
}

std::string_view variantName(ModuleKind kind, std::int32_t variant) noexcept
{
    const auto kindNumber = static_cast<std::int32_t>(kind);
    if (kindNumber < 1 || kindNumber > static_cast<std::int32_t>(kTitles.size())) return kNoName;
    if (variant == -1) return kTitles[kindNumber - 1];
    if (variant < 1 || variant > 15) return kNoName;
    const ModuleType* type = findModuleType((kindNumber - 1) * 16 + variant);
    return type ? type->windowName : kNoName;
}

} // namespace velmora
