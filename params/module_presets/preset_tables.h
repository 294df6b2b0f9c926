#pragma once

#include "params/module_presets.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <stdexcept>

/// The preset table of each module, and what the tables are made of.
namespace velmora {

using Presets = std::span<const ModulePreset>;

Presets preampPresets() noexcept;
Presets filtersPresets() noexcept;
Presets dynamicsPresets() noexcept;
Presets compressorPresets() noexcept;
Presets equalizerPresets() noexcept;
Presets limiterPresets() noexcept;
Presets outputPresets() noexcept;
Presets deesserPresets() noexcept;
Presets dehummerPresets() noexcept;
Presets marlowPresets() noexcept;

/// A row of a table with N columns. It may end early: the columns left out keep their defaults.
template <std::size_t N>
struct PresetRow {
    std::string_view name;
    std::size_t count;
    std::array<double, N> values{};

    consteval PresetRow(std::string_view presetName, std::initializer_list<double> cells)
        : name(presetName), count(cells.size())
    {
        if (count > N) throw std::length_error("more values than columns");
        std::copy(cells.begin(), cells.end(), values.begin());
    }
};

/// Presets over the columns and rows of a table; both must outlive them.
template <std::size_t N, std::size_t R>
consteval std::array<ModulePreset, R> presetsOf(const ParameterId (&columns)[N],
                                                const PresetRow<N> (&rows)[R])
{
    std::array<ModulePreset, R> presets{};
    for (std::size_t i = 0; i < R; ++i) {
        const std::size_t count = rows[i].count;
        presets[i] = {rows[i].name, {columns, count}, {rows[i].values.data(), count}};
    }
    return presets;
}

} // namespace velmora
