#pragma once

#include "art/paint/colour.h"

#include <cairo.h>

namespace velmora::art {

/// How a tick across is drawn. @range alpha 0..1
struct RowTick {
    Colour ink;
    double alpha = 0.9;
};
/// A tick beside a slider or a bar, moved by less than half a pixel to fill one row of pixels.
void drawRowTick(cairo_t* cr, double x0, double x1, double y, const RowTick& tick);

} // namespace velmora::art
