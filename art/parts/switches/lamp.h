#pragma once

#include "art/paint/colour.h"

#include <cairo.h>

#include <array>
#include <optional>

namespace velmora::art {

/// What a lamp shows; nothing when it is dark.
using Light = std::optional<Colour>;

namespace light {
inline constexpr Colour kGreen = hex(0x6fe35a);
inline constexpr Colour kAmber = hex(0xffb53d);
inline constexpr Colour kRed = hex(0xff4a42);
inline constexpr Colour kYellow = hex(0xffd84a);
inline constexpr Colour kOrange = hex(0xff9a2e);
inline constexpr Colour kBlue = hex(0x6fb4ff);
} // namespace light

/// Dark, low, mid and high: the frames of a lamp that shows a level, and of one that shows gain reduction.
inline constexpr std::array<Light, 4> kLevelLights{Light{}, light::kGreen, light::kAmber, light::kRed};
inline constexpr std::array<Light, 4> kReductionLights{Light{}, light::kYellow, light::kOrange, light::kRed};

inline constexpr Colour kDarkLens = hex(0x39413a);
inline constexpr Colour kDarkLevelCell = hex(0x22261f);
inline constexpr Colour kDarkReductionCell = hex(0x2a221b);

/// The tint a lens of this colour has while it is dark.
constexpr Colour darkLensOf(Colour lit)
{
    return mix(hex(0x33373a), lit, 0.1);
}

/// A round lens in a black bezel 2.2 px wider. @param halo reach of the lit lamp's glow, in radii
void drawRoundLamp(cairo_t* cr, double x, double y, double radius, Light lit, Colour dark = kDarkLens,
                   double halo = 2.3);

/// A rectangular lens that fills its dark slot; the glow stays in the slot.
void drawLampCell(cairo_t* cr, double x, double y, double width, double height, Light lit, Colour dark);

/// The recess behind a column of cells, 2 px wider on each side.
void drawLampBarWell(cairo_t* cr, double x, double y, double width, double height);

/// The ring round a single cell of 12 x 14, for a light or a dark face.
void drawLampRing(cairo_t* cr, double x, double y, bool lightFace);

} // namespace velmora::art
