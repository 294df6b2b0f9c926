#pragma once

#include "art/parts/face.h"

#include <cairo.h>

namespace velmora::art {

/// The engraved response of a high pass and a low pass at 12 dB per octave, between the two filters of a
/// panel.
void drawResponseFigure(cairo_t* cr, const UnitFace& face);

} // namespace velmora::art
