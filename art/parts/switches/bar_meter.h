#pragma once

#include <cairo.h>

namespace velmora::art {

/// Bars of segments at a pitch of 3 px, 2 of them lit.

/// One of the master's bars, dark: 105 segments of 6 px in 315.
void drawOutputBarDark6x315(cairo_t* cr);
/// The same lit, with a glow of 1 px to either side: its segments lie over the dark ones when it stands
/// 1 px further left.
void drawOutputBarLit8x316(cairo_t* cr);
/// The mark of a held peak; its segment is the middle one of three.
void drawPeakMark6x9(cairo_t* cr);

/// A bar of 43 segments round a white one in the middle: gain above it green, reduction below it amber.
void drawGainBarLit23x129(cairo_t* cr);
/// Where that bar lies: the well, 1 px wider all round, and the dark segments.
void drawGainBarWell(cairo_t* cr, double x, double y);

} // namespace velmora::art
