#pragma once

#include "dsp/flush.h"

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

    /// @param level dB against the threshold. @return gain in dB.
    double process(double level)
    {
        const bool risesWithLevel = aboveDb >= belowDb;
        const double up = risesWithLevel ? riseRate : fallRate;
        const double down = risesWithLevel ? fallRate : riseRate;
        const double target = targetDb(level);
        gainFast = flush(gainFast + (target - gainFast) * (target > gainFast ? up : down), kFlush);
        if (gainFast > gainSlow)
            gainSlow = gainFast;
        else
            gainSlow = flush(gainSlow + (gainFast - gainSlow) * down, kFlush);
        return gainSlow;
    }

    double aboveDb = 0.0;
    double belowDb = 0.0;
    double transition = 12.0; ///< dB, 0 switches hard

private:
    static constexpr double kTwoPi = 6.283;
    static constexpr double kFlush = 1e-18;

    double targetDb(double level) const
    {
        const double centre = (aboveDb + belowDb) / 2.0;
        const double swing = (aboveDb - belowDb) / 2.0;
        const double halfWidth = transition / 2.0;
        if (halfWidth == 0.0 && level == 0.0) return centre; // on the edge of the hard switch
        return centre + swing * std::tanh(level / halfWidth);
    }

    double riseRate = 1.0;
    double fallRate = 1.0;
    double gainFast = 0.0;
    double gainSlow = 0.0;
};

} // namespace velmora
