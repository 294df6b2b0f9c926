#pragma once

#include "art/parts/face.h"

#include <cairo.h>

namespace velmora::art {

/// An engraved window of 72 x 46 with the curve of a hard limit.
void drawTransferFigure(cairo_t* cr, const UnitFace& face, double x, double y);

} // namespace velmora::art
