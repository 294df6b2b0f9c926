#pragma once

#include "dsp/biquad_design.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>

namespace velmora::test {

inline const char* name(StripBiquadKind kind)
{
    constexpr const char* kNames[] = {"None",    "HighPass",       "Smoother", "LowShelf",
                                      "Peaking", "BandPass",       "Notch",    "HighShelf",
                                      "LowPass", "OnePoleLowPass", "AllPass"};
    return kNames[static_cast<int>(kind)];
}

/// Transfer function of a section at a frequency.
inline std::complex<double> response(const BiquadCoefficients& c, double hz, double sampleRate)
{
    const std::complex<double> z = std::polar(1.0, -2.0 * std::numbers::pi * hz / sampleRate);
    return (c.b0 + z * (c.b1 + z * c.b2)) / (1.0 + z * (c.a1 + z * c.a2));
}

inline double toDb(double linear)
{
    return 20.0 * std::log10(linear);
}

} // namespace velmora::test
