#include "art/resource_list.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string>

namespace velmora::art {
namespace {

constexpr std::array<Family, 14> kFamilies{{
    {"chassis", chassisResources},
    {"foot", footResources},
    {"preamp", preampPanels},
    {"filters", filterPanels},
    {"dynamics", dynamicsPanels},
    {"compressor", compressorPanels},
    {"eq", eqPanels},
    {"limiter", limiterPanels},
    {"master", masterPanels},
    {"special", specialPanels},
    {"knobs", knobStrips},
    {"switches", switches},
    {"meters", meters},
    {"portraits", portraits},
}};

} // namespace

std::span<const Family> families()
{
    return kFamilies;
}

std::vector<Resource> allResources()
{
    std::vector<Resource> resources;
    for (const Family& family : kFamilies) {
        const auto list = family.list();
        resources.insert(resources.end(), list.begin(), list.end());
    }
    std::ranges::sort(resources, {}, &Resource::id);
    const auto twin = std::ranges::adjacent_find(resources, {}, &Resource::id);
    if (twin != resources.end())
        throw std::logic_error("picture " + std::to_string(twin->id) + " stands in two lists");
    return resources;
}

} // namespace velmora::art
