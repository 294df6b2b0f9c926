#pragma once

#include "art/paint/colour.h"

#include <cairo.h>

namespace velmora::art {

/// A needle dial of 138 x 114. The needle itself is drawn by the editor, between face and front.
struct NeedleDial {
    double pivotY;     ///< below the top edge; the pivot stands at x 68.5
    double length;     ///< of the needle, which ends just outside the scale
    double firstAngle; ///< degrees of the needle above the horizon at rest, from the left
    double sweep;      ///< degrees from rest to full reduction
    Colour glow;       ///< the dial from the lamp below to its corners
    Colour middle;
    Colour corner;
    Colour ink;
    Colour bezelLight;
    Colour bezelDark;
    Colour lipLight;
    Colour lipDark;
    Colour lipInk;
};

extern const NeedleDial kOptoDial;
extern const NeedleDial kFetDial;
extern const NeedleDial kVcaDial;

/// Bezel and lit dial with its scale.
void drawNeedleFace(cairo_t* cr, const NeedleDial& dial);
/// What stands before the needle: glass, and the lip over the pivot.
void drawNeedleFront(cairo_t* cr, const NeedleDial& dial);

} // namespace velmora::art
