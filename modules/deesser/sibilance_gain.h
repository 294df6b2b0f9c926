#pragma once

#include "dsp/flush.h"
#include "modules/deesser/sibilance_rates.h"

#include <cmath>

namespace velmora {

/// Gain computer: takes any dip of the ratio of whole signal to band at once, returns towards 1, smooths, and
/// bends by the compression ratio.
class SibilanceGain {
public:
    enum class Ratio { TwoToOne, FourToOne };

    void setRatio(Ratio ratio) { ratio_ = ratio; }
    void setRangeFloor(double gain) { rangeFloor = gain; } ///< deepest gain, linear 0..1
    void reset() { ratioHold = ratioSmooth = 0.0; }

    /// @param ratio of whole signal to band, above 0. @return gain `rangeFloor`..1.
    double process(double ratio, const SibilanceRates& r)
    {
        if (ratioHold > ratio)
            ratioHold = ratio;
        else
            ratioHold += (1.0 - ratioHold) * r.riseFast;
        ratioHold = flush(ratioHold, kFlush);
        ratioSmooth += (ratioHold - ratioSmooth) * (ratioSmooth > ratioHold ? r.riseFast : r.recover);
        ratioSmooth = flush(ratioSmooth, kFlush);
        return bend(ratioSmooth) * (1.0 - rangeFloor) + rangeFloor;
    }

private:
    static constexpr double kFlush = 1e-15;

    // The power 1 - 1/ratio: 0.5 or 0.75.
    double bend(double ratio) const
    {
        const double root = std::sqrt(ratio);
        return ratio_ == Ratio::TwoToOne ? root : root * std::sqrt(root);
    }

    Ratio ratio_ = Ratio::TwoToOne;
    double rangeFloor = 1.0;
    double ratioHold = 0.0;
    double ratioSmooth = 0.0;
};

} // namespace velmora
