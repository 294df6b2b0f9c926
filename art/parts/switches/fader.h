#pragma once

#include <cairo.h>

namespace velmora::art {

/// The master fader's cap, 34 x 52 in the middle of 38 x 92.
void drawFaderCap38x92(cairo_t* cr);
/// A slider's cap with an amber line, 24 x 16 in 34 x 34.
void drawSliderCap34x34(cairo_t* cr);

} // namespace velmora::art
