#pragma once

#include <cairo.h>

namespace velmora::art {

/// The lit target of an indicator tube, 66 x 66: its dark sector, below, closes as the value rises.
/// @range value 0..1
void drawEyeTarget66x66(cairo_t* cr, double value);
/// What stands before the target: bezel, cap over the cathode, glass.
void drawEyeFront66x66(cairo_t* cr);

} // namespace velmora::art
