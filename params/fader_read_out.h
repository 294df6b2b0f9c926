#pragma once

#include <string>

namespace velmora {

/// The fader's dB in the coarse form of the master meter's numeric read-outs: one decimal, "-oo" below -86
/// dB, and "0.0" for what lies less than 0.1 dB under 0. @range v 0..1, on the fader's own law.
std::string faderReadOutText(double v);

} // namespace velmora
