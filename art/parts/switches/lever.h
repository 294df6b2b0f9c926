#pragma once

#include "art/paint/colour.h"

#include <cairo.h>

namespace velmora::art {

enum class LeverPosition { Up, Middle, Down };

/// What a lever is made of: its nut, and its bat from the lit to the dark flank.
struct LeverFinish {
    Colour nutLight = hex(0xf4f4f2);
    Colour nutDark = hex(0x55585a);
    Colour batEdge = hex(0x8b8e91);
    Colour batLight = kWhite;
    Colour batBody = hex(0xc4c6c8);
    Colour batDark = hex(0x3c3e40);
};

inline constexpr LeverFinish kChromeLever{};
/// Chrome nut, bat in amber plastic.
inline constexpr LeverFinish kAmberLever{
    .batEdge = hex(0xa35d14), .batLight = hex(0xffe2ae), .batBody = hex(0xe79a34), .batDark = hex(0x5c2f06)};
/// Black oxide nut, chrome bat.
inline constexpr LeverFinish kBlackNutLever{.nutLight = hex(0x74787c), .nutDark = hex(0x0e0f10)};
/// Chrome nut, blue anodised bat.
inline constexpr LeverFinish kBlueLever{
    .batEdge = hex(0x476176), .batLight = hex(0xdcecf8), .batBody = hex(0x7fa0ba), .batDark = hex(0x1f303d)};

/// A bat lever on its hexagon nut round (x, y); in the middle it points at the beholder.
/// At size 1 it reaches 14 px up or down, its shadow 16 px.
void drawLever(cairo_t* cr, double x, double y, LeverPosition position, double size = 1.0,
               const LeverFinish& finish = kChromeLever);

} // namespace velmora::art
