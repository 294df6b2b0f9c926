#pragma once

#include <cairo.h>

namespace velmora::art {

/// Lit strip of 138 x 67 on which the editor draws a moving mark at x 120 (rest) to 18, y 8 to 25.
void drawStripMeter138x67(cairo_t* cr);
/// Its glass, to be laid over the mark.
void drawStripGlass138x67(cairo_t* cr);

inline constexpr int kLampMeterLamps = 13;
/// A row of lamps lit from the right. @param lit 0..13
void drawLampMeter133x71(cairo_t* cr, int lit);

/// The bar of 126 x 22 whose 59 segments fill the columns 4 to 122, all dark or all lit.
void drawBrickMeter(cairo_t* cr, double x, double y, bool lit);

} // namespace velmora::art
