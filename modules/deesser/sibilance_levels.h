#pragma once

#include "dsp/lanes.h"
#include "modules/deesser/sibilance_rates.h"

namespace velmora {

/// Levels of the whole signal and of the sibilance band, each through a fast and a slow follower. The two
/// signals are the lanes of a vector.
class SibilanceLevels {
public:
    void reset() { *this = {}; }

    /// @param wide rectified sample of the whole signal. @param band rectified, weighted sample of the band.
    VELMORA_KERNEL void follow(double wide, double band, const SibilanceRates& r)
    {
        const Lanes2 magnitude{wide, band};
        const Lanes2 fallFast{r.fallFast, r.riseFast}; // the band's fast one falls as it rises
        const Lanes2 riseSlow{r.riseSlow, r.riseFast};
        const Lanes2 fallSlow{r.fallSlow, r.fallFast};
        const Lanes2 moved =
            fast +
            (magnitude - fast) * choose<Lanes2>(magnitude > fast, allLanes<Lanes2>(r.riseFast), fallFast);
        fast = flushLanes(moved, kFlush);
        const Lanes2 input{moved[kWide], fast[kBand]}; // the slow one of the whole takes it before the flush
        slow += (input - slow) * choose<Lanes2>(input > slow, riseSlow, fallSlow);
        slow = flushLanes(slow, kFlush);
    }

    /// Whole signal against band: below 1 the band stands out. Silence reads about 1e5.
    VELMORA_KERNEL double wideToBand() const
    {
        return (slow[kWide] + kWideFloor + kWideBias) / (slow[kBand] + kBandFloor + kBandBias);
    }

private:
    enum Lane { kWide, kBand };

    static constexpr double kFlush = 1e-15;
    static constexpr double kWideFloor = 1e-7;
    static constexpr double kWideBias = 0.001; // soft sounds count as free of sibilance
    static constexpr double kBandFloor = 1e-8;
    static constexpr double kBandBias = 1e-10;

    Lanes2 fast{};
    Lanes2 slow{};
};

} // namespace velmora
