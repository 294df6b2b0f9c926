#pragma once

#include "art/paint/colour.h"

#include <cairo.h>

namespace velmora::art {

/// A disc shaded from its lit side at the top left to its far side.
void fillShadedDisc(cairo_t* cr, double x, double y, double radius, Colour lit, Colour far);

struct RimLook {
    double width = 0.9;
    double light = 0.45; ///< alpha of the white at the top left
    double dark = 0.55;  ///< alpha of the black at the bottom right
};
/// The bevel along the inside of a disc's edge.
void drawRim(cairo_t* cr, double x, double y, double radius, const RimLook& look = {});

/// How far a face that looks towards an angle is turned to the light. @param degrees clockwise from 12
/// o'clock
/// @return 1 towards the lamp, -1 away from it
double litAt(double degrees);

struct WellLook {
    double radius = 3.0;
    double darkening = 0.16;  ///< black laid over the ground
    double upperDark = 0.55;  ///< alpha of the shadow inside the upper edge
    double lowerLight = 0.18; ///< alpha of the light on the lower lip
};
/// A sunken field: darkened ground, shadow along its upper edge, light along its lower one.
void drawWell(cairo_t* cr, double x, double y, double width, double height, const WellLook& look = {});

/// An outline on half pixels that darkens above and lightens below, around a thing let into a face.
void drawLip(cairo_t* cr, double x, double y, double width, double height, double radius, double upperDark,
             double lowerLight);

} // namespace velmora::art
