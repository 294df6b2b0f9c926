#pragma once

#include "art/paint/colour.h"

#include <cairo.h>

namespace velmora::art {

/// A ring of fine ribs, straight along the shaft. @unit pixels
struct Ribs {
    double inner;
    double outer;
    int count;
    double dark;  ///< alpha of the grooves
    double light; ///< alpha of a crest that faces the lamp
    Colour glint = kWhite;
};

/// Lays grooves and crests over a body. Near the finest pitch the pixels can carry the ribs fade, so that
/// they don't flicker while they turn.
void drawRibs(cairo_t* cr, const Ribs& ribs, double degrees);

} // namespace velmora::art
