#pragma once

#include "params/parameter_ids.h"

#include <string>

namespace velmora {

/// What an id is called, before the short name is cut to its length.
struct ParameterNames {
    std::string name;
    std::string shortName;
    std::string label{};
};

ParameterNames namesOf(ParameterId id);

} // namespace velmora
