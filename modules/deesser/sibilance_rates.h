#pragma once

namespace velmora {

/// One-pole steps of the de-esser's followers, 0..1 per sample. All grow with the detection frequency.
struct SibilanceRates {
    double riseFast = 1.0;
    double fallFast = 1.0;
    double riseSlow = 1.0;
    double fallSlow = 1.0;
    double recover = 1.0; ///< return of the gain
};

/// @param frequency detection frequency in Hz; @param sampleRate in Hz.
SibilanceRates sibilanceRates(double frequency, double sampleRate);

} // namespace velmora
