#include "art/panels/eq_panels.h"

#include "art/parts/face.h"
#include "art/resource.h"

#include <array>

namespace velmora::art {
namespace {

constexpr auto kPanels = std::to_array<Resource>({
    {35000, kPanelWidth, kPanelHeight, drawSorrelPanel},
    {35100, kPanelWidth, kPanelHeight, drawTamarinPanel},
    {35200, kPanelWidth, kPanelHeight, drawJuniperPanel},
});

} // namespace

std::span<const Resource> eqPanels()
{
    return kPanels;
}

} // namespace velmora::art
