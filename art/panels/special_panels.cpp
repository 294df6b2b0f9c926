#include "art/panels/special_panels.h"

#include "art/parts/face.h"
#include "art/resource.h"

#include <array>

namespace velmora::art {
namespace {

constexpr auto kPanels = std::to_array<Resource>({
    {38000, kPanelWidth, kPanelHeight, drawDeesserPanel},
    {38100, kPanelWidth, kPanelHeight, drawDehummerPanel},
    {38200, kPanelWidth, kPanelHeight, drawMarlowPanel},
});

} // namespace

std::span<const Resource> specialPanels()
{
    return kPanels;
}

} // namespace velmora::art
