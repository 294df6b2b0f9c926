#pragma once

#include "art/parts/knobs/knob.h"

#include <cairo.h>

namespace velmora::art {

/// The shadow under a knob, falling right and down; it fades out inside the knob's room.
/// @param strength 1 for most knobs
void castShadow(cairo_t* cr, const Knob& knob, double strength);

/// The shadow of a knob that sits close on what is below it, as a grip on a ring.
void castNearShadow(cairo_t* cr, const Knob& knob);

/// The shadow a raised part of a knob throws on the knob's own body. @param radius pixels
void castOnBody(cairo_t* cr, const Knob& knob, double radius, double alpha, double inner);

} // namespace velmora::art
