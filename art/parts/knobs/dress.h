#pragma once

#include "art/paint/colour.h"

#include <cairo.h>

#include <span>

namespace velmora::art {

/// These draw around the origin; lengths in pixels.

/// A disc lit from the top left, over a middle colour.
void fillShadedDisc(cairo_t* cr, double radius, Colour topLeft, Colour middle, Colour bottomRight);
void fillFlatDisc(cairo_t* cr, double radius, Colour colour, double alpha);

/// One ray of spun metal. @range turn 0..1 clockwise from 12 o'clock, rising; the first stands at 0, the last
/// at 1
struct Ray {
    double turn;
    Colour colour;
};
/// A spun disc with fine rings, which stand `pitch` pixels apart.
void drawSpunDisc(cairo_t* cr, double radius, std::span<const Ray> rays, double pitch, double depth);

struct Pointer {
    double from;
    double to;
    double lineWidth;
    Colour colour = kWhite;
    double shadow = 0.6; ///< alpha
};
/// A line with round ends.
void drawPointer(cairo_t* cr, const Pointer& pointer, double degrees);

} // namespace velmora::art
