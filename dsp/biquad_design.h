#pragma once

#include <cstdint>

namespace velmora {

/// Kinds of the strip's second-order section. `None` passes audio untouched.
enum class StripBiquadKind : std::int32_t {
    None = 0,
    HighPass = 1,
    Smoother = 2,
    LowShelf = 3,
    Peaking = 4,
    BandPass = 5,
    Notch = 6,
    HighShelf = 7,
    LowPass = 8,
    OnePoleLowPass = 9,
    AllPass = 10,
};

/// Direct-form coefficients, normalised so that the recursion needs no division:
/// y = b0 x0 + b1 x1 + b2 x2 - a1 y1 - a2 y2. `a0` only records the divisor that the design used.
struct BiquadCoefficients {
    double a0 = 1.0;
    double a1 = 0.0;
    double a2 = 0.0;
    double b0 = 1.0;
    double b1 = 0.0;
    double b2 = 0.0;
};

/// What a design is made from.
struct BiquadSettings {
    StripBiquadKind kind = StripBiquadKind::None;
    double frequency = 1000.0; ///< Hz
    double q = 1.0;
    double gainDb = 0.0;         ///< dB, shelves and peaking only
    double sampleRate = 44100.0; ///< Hz
};

/// What a design takes from frequency and Q: a moving gain leaves it as it is.
struct BiquadPrewarp {
    double c = 1.0; ///< cosine of the angular frequency
    double s = 0.0; ///< its sine
    double q = 1.0; ///< Q, shrunk near Nyquist in the kinds that do so
};
BiquadPrewarp prewarpBiquad(const BiquadSettings& settings);

/// Designs a section by the bilinear transform of the analogue prototypes (R. Bristow-Johnson, "Cookbook
/// formulae for audio EQ biquad filter coefficients"), with a Q that shrinks as the frequency nears Nyquist.
/// The frequency is held below 0.499 of the rate, except where BandPass and OnePoleLowPass take it as it is.
BiquadCoefficients designBiquad(const BiquadSettings& settings);
/// The same for settings whose prewarp is known.
BiquadCoefficients designBiquad(const BiquadSettings& settings, const BiquadPrewarp& prewarp);

} // namespace velmora
