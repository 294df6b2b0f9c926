#pragma once

#include "art/paint/colour.h"

#include <cairo.h>

namespace velmora::art {

/// A body with rounded flutes around its rim. Its walls fall off towards the rim and take the lamp by the way
/// they look, so that the light stays where it is while the body turns.
struct Flutes {
    double radius;      ///< over the crests, pixels
    double inner = 0.0; ///< what lies nearer to the shaft is covered and isn't drawn, pixels
    int count;
    double depth;       ///< of a flute, share of the radius
    double round = 1.0; ///< below 1: crests become narrow; above 1: flutes become narrow
    double shoulder;    ///< where the wall begins, share of the outline
    double steep;       ///< how far the wall leans at the rim, degrees
    double relief;      ///< how strongly the flutes are felt on the wall; 1 as their depth says
    double shine;       ///< strength of the light on the wall
    double shade;       ///< strength of its dark side
    double groove;      ///< how dark the middle of a flute is, alpha
    double crest;       ///< strength of the light on a crest that faces the lamp
    double edge = 0.0;  ///< strength of the light on the outermost pixel
};

/// Colours of a body from the top left over its middle to the bottom right.
struct Slope {
    Colour bright;
    Colour middle;
    Colour dark;
    double reach = 0.7; ///< where the ends lie, share of the radius to either side
};

void drawFluted(cairo_t* cr, const Flutes& flutes, const Slope& slope, double degrees, Colour glint = kWhite);

} // namespace velmora::art
