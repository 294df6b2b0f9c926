#pragma once

#include "params/parameter_ids.h"

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace velmora {

inline constexpr std::int32_t kNoCategory = -1;
inline constexpr std::int32_t kSpecialCategory = 7;
inline constexpr std::int32_t kHouseDesigner = 22; ///< the maker's own presets

struct FactoryValue {
    ParameterId id;
    double value;
};

/// A factory preset as a table holds it.
struct FactoryRow {
    std::string_view name;
    std::int32_t category;
    std::int32_t designer;
    bool startsFromDefaults; ///< all 360 defaults come first
    std::span<const FactoryValue> values;
};

using TypeValues = std::array<FactoryValue, kRoleCount>;

/// The Type values of the nine roles.
constexpr TypeValues typeValues(const std::array<double, kRoleCount>& types)
{
    TypeValues values{};
    for (std::size_t role = 0; role < values.size(); ++role)
        values[role] = {kRoleWindows[role].windowBase + kTypeOffset, types[role]};
    return values;
}

} // namespace velmora
