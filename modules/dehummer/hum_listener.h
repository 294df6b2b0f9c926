#pragma once

#include "dsp/strip_biquad.h"
#include "modules/dehummer/hum_profile.h"

#include <array>

namespace velmora {

/// Monitor of the de-hummer: narrow band-passes in parallel at twelve of the harmonics, so that the user
/// hears what is being taken away.
class HumListener {
public:
    HumListener();

    void setSampleRate(double hz);
    void setFundamental(double hz);
    void reset();

    /// @param shares weight of each harmonic in the mix.
    double process(double x, const PerHarmonic& shares)
    {
        double sum = 0.0;
        for (std::size_t k = 0; k < listen.size(); ++k)
            sum += listen[k].runSample(x) * harmonic(shares, kHeard[k]);
        return kGain * sum;
    }

private:
    static constexpr std::array kHeard{1, 2, 3, 4, 5, 6, 9, 10, 13, 14, 17, 18};
    static constexpr double kGain = 2.0;

    std::array<StripBiquad, kHeard.size()> listen;
};

} // namespace velmora
