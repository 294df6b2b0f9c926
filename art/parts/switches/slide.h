#pragma once

#include "art/paint/colour.h"

#include <cairo.h>

namespace velmora::art {

/// A slide switch: a black slot along its box with a ridged thumb, centred across.
struct Slide {
    double x = 0.0;
    double y = 0.0;
    double width = 19.0;
    double height = 52.0;
    int positions = 2;
    Colour thumb = hex(0xc5c8cb);
    double slotWidth = 7.0;
    double thumbLength = 14.0;
    double thumbWidth = 15.0;
};

/// @param position 0 at the top
void drawSlideDown(cairo_t* cr, const Slide& slide, int position);
/// @param position 0 at the left; the thumb stands in the middle of its share of the slot
void drawSlideAcross(cairo_t* cr, const Slide& slide, int position);

} // namespace velmora::art
