#pragma once

#include "dsp/strip_biquad.h"
#include "modules/dehummer/hum_profile.h"

#include <array>
#include <cstdint>

namespace velmora {

/// Monitor of the de-hummer: narrow band-passes in parallel at twelve of the harmonics, so that the user
/// hears what is being taken away.
class HumListener {
public:
    HumListener();

    void setSampleRate(double hz);
    void setFundamental(double hz);
    void reset();

    /// @param shares weight of each harmonic in the mix. @range frames up to kLongest.
    void process(const double* input, double* output, std::int32_t frames, const PerHarmonic& shares);

    static constexpr std::int32_t kLongest = 64;

private:
    static constexpr std::array kHeard{1, 2, 3, 4, 5, 6, 9, 10, 13, 14, 17, 18};

    std::array<StripBiquad, kHeard.size()> listen;
};

} // namespace velmora
