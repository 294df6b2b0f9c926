#pragma once

#include "params/parameter_ids.h"

#include <array>
#include <span>

namespace velmora {

struct FactoryValue {
    ParameterId id;
    double value;
};

/// A factory preset that is all defaults and a few values over them.
struct DefaultsRow {
    std::uint32_t id;
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
