#pragma once

#include "dsp/biquad_design.h"

#include <cmath>

namespace velmora::preamp {

/// Output transformer of the 70s and 80s: a second-order high-pass at 2 Hz in direct form, Q 0.5.
inline BiquadCoefficients designDcBlocker(double sampleRate)
{
    constexpr double kW = 12.566370614359172; // rad/s
    const double x = kW / sampleRate;
    const double s = std::sin(x);
    const double c = std::cos(x);
    const double g = 1.0 / (s + 1.0);
    const double b0 = (c + 1.0) * 0.5 * g;
    return {.a0 = s + 1.0, .a1 = -2.0 * c * g, .a2 = (1.0 - s) * g, .b0 = b0, .b1 = -(c + 1.0) * g, .b2 = b0};
}

} // namespace velmora::preamp
