#pragma once

#include "art/parts/face.h"

#include <cairo.h>

namespace velmora::art {

/// Where a column of 12 lamps for gain reduction, 12 x 180, lies with its top left at (x, y), and
/// its print.
void drawReductionBar(cairo_t* cr, const UnitFace& face, double x, double y, double headingY);

} // namespace velmora::art
