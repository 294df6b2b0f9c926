#pragma once

#include "art/parts/face.h"

#include <cairo.h>

namespace velmora::art {

/// What sets the knobs of each compressor apart from its meter and its badge.
void drawOptoFrame(cairo_t* cr, const UnitFace& face);
void drawFetFrame(cairo_t* cr, const UnitFace& face);
void drawVcaFrame(cairo_t* cr, const UnitFace& face);

/// Name plates at the lower right. @param printed with their names
void drawOptoBadge(cairo_t* cr, const UnitFace& face, bool printed);
void drawFetBadge(cairo_t* cr, const UnitFace& face, bool printed);
void drawVcaBadge(cairo_t* cr, const UnitFace& face, bool printed);

/// Where the meter of 138 x 114 sits.
void drawMeterRecess(cairo_t* cr, const UnitFace& face);

} // namespace velmora::art
