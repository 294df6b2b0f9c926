#pragma once

#include "art/parts/face.h"

#include <cairo.h>

namespace velmora::art {

/// What gives each preamp its look: rules, frames and plates that lie on the bare face below the controls.
/// @param printed with the lettering on them
void adornGain(cairo_t* cr, const UnitFace& face, bool printed);
void adornPre60s(cairo_t* cr, const UnitFace& face, bool printed);
void adornPre70s(cairo_t* cr, const UnitFace& face, bool printed);
void adornPre80s(cairo_t* cr, const UnitFace& face, bool printed);
void adornAdc90s(cairo_t* cr, const UnitFace& face, bool printed);

} // namespace velmora::art
