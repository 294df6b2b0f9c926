#include "art/chassis/chassis.h"
#include "art/resource.h"

namespace velmora::art {
namespace {

constexpr Resource kChassis[]{
    {30000, 1515, 660, drawMainBackground}, {30001, 94, 629, drawRightPanel},
    {30002, 46, 108, drawPowerButton},      {30003, 52, 72, drawAddButton},
    {30004, 52, 84, drawViewButton},        {30005, 254, 84, drawNamePlate},
    {30020, 152, 538, drawEmptyModule},     {30050, 152, 538, drawRemoveMark},
    {30051, 208, 644, drawDragShadow},      {30060, 152, 66, drawPreampStrip},
    {30061, 152, 66, drawFilterStrip},      {30062, 152, 66, drawExpanderStrip},
    {30063, 152, 66, drawCompressorStrip},  {30064, 152, 66, drawEqStrip},
    {30065, 152, 66, drawLimiterStrip},     {30066, 152, 66, drawOutputStrip},
    {30067, 152, 66, drawInsertStrip},      {30068, 152, 66, drawInsertStrip},
    {30070, 6, 12, drawMiniArrow},
};

constexpr Resource kFoot[]{
    {30120, 152, 68, drawFoot},           {30122, 22, 44, drawMuteButton},
    {30123, 22, 44, drawSoloButton},      {30124, 20, 80, drawLevelLamp},
    {30125, 41, 44, drawSideChainButton}, {30126, 41, 44, drawMonitorButton},
    {30200, 152, 68, drawFootWarning},    {30201, 152, 67, drawMiniWarning},
};

} // namespace

std::span<const Resource> chassisResources()
{
    return kChassis;
}

std::span<const Resource> footResources()
{
    return kFoot;
}

} // namespace velmora::art
