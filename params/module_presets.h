#pragma once

#include "params/parameter_ids.h"

#include <span>
#include <string_view>

/// The named settings of the modules, which the panels offer in their preset selectors.
namespace velmora {

/// A named setting: the parameters that it writes over the module's defaults.
struct ModulePreset {
    std::string_view name;
    std::span<const ParameterId> offsets; ///< in the module's window
    std::span<const double> values;       ///< normalised, one for each offset
};

/// Entries that a selector shows; a few modules have one more behind them.
inline constexpr int kShownModulePresets = 10;

/// Offsets that a module's window can have, an insert's reserve included.
inline constexpr std::size_t kModuleWindowSize = 64;

/// Presets by Type code (the whole system's); none for a code that is no module. The first is "Default".
std::span<const ModulePreset> modulePresets(std::int32_t code) noexcept;

/// Name of a preset; "Init" for an index outside the list.
std::string_view modulePresetName(std::int32_t code, int index) noexcept;

/// Writes the normalised values of a whole window: the module's defaults, 0.0 at offsets without a parameter,
/// and over them what the preset names. An index outside the list leaves the defaults.
void applyModulePreset(std::int32_t code, int index, std::span<double, kModuleWindowSize> window) noexcept;

} // namespace velmora
