#pragma once

#include "dsp/strip_biquad.h"
#include "modules/dehummer/hum_profile.h"

#include <array>
#include <cstdint>

namespace velmora {

/// Eighteen very narrow cuts in series, one for each harmonic of the hum.
class HarmonicComb {
public:
    HarmonicComb();

    void setSampleRate(double hz);
    void setFundamental(double hz);
    /// Gain of each cut in dB.
    void setGains(const PerHarmonic& db);
    void reset();

    /// In place. Any number of frames.
    void process(double* audio, std::int32_t frames);

private:
    std::array<StripBiquad, kHarmonics> notch; ///< in harmonic order
};

} // namespace velmora
