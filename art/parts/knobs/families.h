#pragma once

#include "art/parts/knobs/knob.h"

namespace velmora::art {

extern const Family kModern;   // filters, gain, special modules
extern const Family kDynamics; // ring in the accent
extern const Family kTrim;     // the small ones
extern const Family kDome;     // 60s
extern const Family kToothed;  // 70s, cap in the accent
extern const Family kFin;      // 80s
extern const Family kOpto;
extern const Family kFet;
extern const Family kVca; // cap in the accent
extern const Family kOptoLimiter;
extern const Family kSorrelRing;
extern const Family kSorrelGrip;
extern const Family kTamarin;
extern const Family kJuniper;

} // namespace velmora::art
