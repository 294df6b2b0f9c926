#pragma once

#include "params/parameter_ids.h"

#include <string_view>

namespace velmora {

/// Names of a meter behind its role's prefixes.
struct MeterRow {
    std::string_view word;
    std::string_view shortWord;
    std::string_view label{};
};

/// Row of a meter of a fixed role. @range meter 0 to the window's meter count - 1.
const MeterRow& meterRow(const RoleWindow& window, ParameterId meter);

} // namespace velmora
