#pragma once

#include "art/paint/colour.h"

#include <cairo.h>

namespace velmora::art {

enum class Icon {
    LowShelf, ///< falls from the left; also a low pass
    HighShelf,
    SoftHighShelf,
    MediumHighShelf,
    SteepHighShelf,
    SoftLowShelf,
    MediumLowShelf,
    SteepLowShelf,
    Bell,
    Wide,
    Narrow,
    Peak,
    Notch,
    Flat,
    Cross,      ///< two bands that split
    Off,        ///< struck-out ring
    Direct,     ///< what a bell lets through
    Complement, ///< what it leaves
    Up,
    Down,
    Left,
    Right,
    UpDown,
};

struct IconLook {
    double alpha = 1.0;
    double lineWidth = 1.2;
};
/// Draws the figure into a field of width x height around (x, y).
void drawIcon(cairo_t* cr, Icon icon, double x, double y, double width, double height, Colour colour,
              const IconLook& look = {});

} // namespace velmora::art
