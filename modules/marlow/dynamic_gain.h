#pragma once

#include "dsp/flush.h"
#include "dsp/lanes.h"
#include "dsp/vector_math.h"

#include <cmath>

namespace velmora {

/// The dynamic band's gain: from Below to Above around the threshold, with rates that follow the band's
/// frequency. A rising level always takes the fast rate, whichever way the gain moves.
class DynamicGain {
public:
    /// @param hz band frequency; @param timeFactor 0.1..10, slower as it grows.
    void setRates(double hz, double timeFactor, double sampleRate)
    {
        const double span = timeFactor * sampleRate;
        riseRate = 1.0 - std::exp(-kTwoPi * 0.25 * std::pow(hz, 0.7071) / span);
        fallRate = 1.0 - std::exp(-kTwoPi * 0.1 * std::pow(hz, 0.5) / span);
    }
    void reset() { gainFast = gainSlow = 0.0; }

    /// Gain that a level leads to in the end, in dB. @param level dB against the threshold.
    template <typename V>
    VELMORA_KERNEL V targetDb(const V& level) const
    {
        const double centre = (aboveDb + belowDb) / 2.0;
        const double swing = (aboveDb - belowDb) / 2.0;
        const double halfWidth = transition / 2.0;
        const V target = centre + swing * tanhLanes<V>(level / halfWidth);
        if (halfWidth != 0.0) return target;
        return choose<V>(level == 0.0, allLanes<V>(centre), target); // on the edge of the hard switch
    }

    /// Shares of the way to a target per sample, up and down.
    struct Shares {
        double up, down;
    };
    Shares shares() const
    {
        return aboveDb >= belowDb ? Shares{riseRate, fallRate} : Shares{fallRate, riseRate};
    }

    /// @return gain in dB.
    VELMORA_KERNEL double process(double target, const Shares& share)
    {
        const double step = target > gainFast ? share.up : share.down;
        gainFast = flush(gainFast + (target - gainFast) * step, kFlush);
        const double fallen = flush(gainSlow + (gainFast - gainSlow) * share.down, kFlush);
        gainSlow = gainFast > gainSlow ? gainFast : fallen;
        return gainSlow;
    }

    double aboveDb = 0.0;
    double belowDb = 0.0;
    double transition = 12.0; ///< dB, 0 switches hard

private:
    static constexpr double kTwoPi = 6.283;
    static constexpr double kFlush = 1e-18;

    double riseRate = 1.0;
    double fallRate = 1.0;
    double gainFast = 0.0;
    double gainSlow = 0.0;
};

} // namespace velmora
