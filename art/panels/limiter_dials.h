#pragma once

#include "art/parts/scale.h"

#include <cairo.h>

namespace velmora::art {

/// Scales that the limiters share.
const DialScale& limiterAttack();
const DialScale& limiterRelease();
/// For small knobs with little room at their sides: 30 and 300 without numbers.
const DialScale& limiterReleaseNarrow();
/// -40..10 dB by 10. These two have a tick each 5 dB, or each 2 dB on large knobs.
const DialScale& limiterCeiling();
const DialScale& limiterCeilingLarge();
/// -20..20 dB by 10.
const DialScale& limiterOutput();
const DialScale& limiterOutputLarge();

/// Well of the side chain filter's value, and what is printed around its knob, at the lower left.
void drawKeyFilterWindow(cairo_t* cr, const UnitFace& face);
void printKeyFilter(cairo_t* cr, const UnitFace& face);

} // namespace velmora::art
