#pragma once

#include "art/parts/knobs/film.h"
#include "art/parts/knobs/knob.h"

namespace velmora::art {

constexpr Film filmOf(const Knob& knob)
{
    return {knob.width, knob.height, knob.frames, kKnobColumns};
}

/// Draws every frame of a knob. Neighbouring layers that stand still are drawn once and copied.
void drawStrip(cairo_t* cr, const Knob& knob);

} // namespace velmora::art
