#pragma once

#include "art/paint/colour.h"

#include <cairo.h>

#include <initializer_list>

namespace velmora::art {

/// One stop of a gradient. @range offset and alpha 0..1
struct Stop {
    double offset;
    Colour colour;
    double alpha = 1.0;
};
using Stops = std::initializer_list<Stop>;

/// These three choose what the next fill or stroke paints with.
void useColour(cairo_t* cr, Colour colour, double alpha = 1.0);
void useLinear(cairo_t* cr, double x0, double y0, double x1, double y1, Stops stops);
/// From the circle (x0, y0, r0) to the circle (x1, y1, r1).
void useRadial(cairo_t* cr, double x0, double y0, double r0, double x1, double y1, double r1, Stops stops);

/// Fills a disc with an angular gradient, clockwise from 12 o'clock, as light lies on spun metal.
void fillConic(cairo_t* cr, double x, double y, double radius, Stops stops);

} // namespace velmora::art
