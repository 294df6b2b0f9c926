#pragma once

#include "art/resource.h"

#include <span>
#include <string_view>
#include <vector>

namespace velmora::art {

struct Family {
    std::string_view name;
    std::span<const Resource> (*list)();
};

std::span<const Family> families();

/// Every picture, in ascending ids. @throws std::logic_error when two have the same id
std::vector<Resource> allResources();

} // namespace velmora::art
