#pragma once

#include "dsp/flush.h"
#include "modules/deesser/sibilance_rates.h"

#include <cmath>

namespace velmora {

/// Levels of the whole signal and of the sibilance band, each through a fast and a slow follower.
class SibilanceLevels {
public:
    void reset() { *this = {}; }

    /// @param magnitude rectified sample of the whole signal.
    void followWide(double magnitude, const SibilanceRates& r)
    {
        wideFast += (magnitude - wideFast) * (magnitude > wideFast ? r.riseFast : r.fallFast);
        wideSlow += (wideFast - wideSlow) * (wideFast > wideSlow ? r.riseSlow : r.fallSlow);
        wideFast = flush(wideFast, kFlush);
        wideSlow = flush(wideSlow, kFlush);
    }

    /// @param magnitude rectified, weighted sample of the band.
    void followBand(double magnitude, const SibilanceRates& r)
    {
        bandFast = flush(bandFast + (magnitude - bandFast) * r.riseFast, kFlush);
        bandSlow += (bandFast - bandSlow) * (bandFast > bandSlow ? r.riseFast : r.fallFast);
        bandSlow = flush(bandSlow, kFlush);
    }

    /// Whole signal against band: below 1 the band stands out. Silence reads about 1e5.
    double wideToBand() const
    {
        return (wideSlow + kWideFloor + kWideBias) / (bandSlow + kBandFloor + kBandBias);
    }

private:
    static constexpr double kFlush = 1e-15;
    static constexpr double kWideFloor = 1e-7;
    static constexpr double kWideBias = 0.001; // soft sounds count as free of sibilance
    static constexpr double kBandFloor = 1e-8;
    static constexpr double kBandBias = 1e-10;

    double wideFast = 0.0;
    double wideSlow = 0.0;
    double bandFast = 0.0;
    double bandSlow = 0.0;
};

} // namespace velmora
