#pragma once

#include "art/paint/lettering.h"
#include "art/paint/texture.h"

#include <cairo.h>

#include <string_view>

namespace velmora::art {

inline constexpr Colour kChassisMetal = hex(0x1f2124);
inline constexpr Colour kPanelMetal = hex(0x26292c);
inline constexpr Colour kPrint = hex(0xc3c9ce);
inline constexpr Colour kAmberLight = hex(0xfba83c);
inline constexpr Colour kWarningRed = hex(0xff4646);

struct MetalLook {
    Grain grain = Grain::BrushedAcross;
    double amount = 0.032;
    std::uint32_t seed = 31;
};
/// A sheet of brushed metal from the origin on.
void drawMetal(cairo_t* cr, double width, double height, Colour base, const MetalLook& look);

/// An oblong hole for a rack screw, and the screw in it.
void drawRackHole(cairo_t* cr, double x, double y, double degrees);

/// A cut across a sheet from x0 to x1, a dark edge above a light one.
void drawCut(cairo_t* cr, double x0, double y, double x1, double dark, double light);

/// Writes from below upwards around (x, y).
void drawUpward(cairo_t* cr, std::string_view text, double x, double y, Lettering lettering);

} // namespace velmora::art
