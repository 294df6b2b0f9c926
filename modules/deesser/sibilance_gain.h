#pragma once

#include "dsp/flush.h"
#include "dsp/lanes.h"
#include "modules/deesser/sibilance_rates.h"

namespace velmora {

/// Gain computer: takes any dip of the ratio of whole signal to band at once, returns towards 1, smooths, and
/// bends by the compression ratio.
class SibilanceGain {
public:
    enum class Ratio { TwoToOne, FourToOne };

    void setRatio(Ratio ratio) { ratio_ = ratio; }
    void setRangeFloor(double gain) { rangeFloor = gain; } ///< deepest gain, linear 0..1
    void reset() { ratioHold = ratioSmooth = 0.0; }

    /// @param ratio of whole signal to band, above 0. @return the smoothed ratio, for `gain`.
    double follow(double ratio, const SibilanceRates& r)
    {
        const double returned = ratioHold + (1.0 - ratioHold) * r.riseFast;
        ratioHold = flush(ratioHold > ratio ? ratio : returned, kFlush);
        ratioSmooth += (ratioHold - ratioSmooth) * (ratioSmooth > ratioHold ? r.riseFast : r.recover);
        ratioSmooth = flush(ratioSmooth, kFlush);
        return ratioSmooth;
    }

    /// Gain `rangeFloor`..1 of a smoothed ratio.
    template <typename V>
    VELMORA_KERNEL V gain(const V& ratio) const
    {
        // The power 1 - 1/ratio: 0.5 or 0.75.
        const V root = sqrtLanes<V>(ratio);
        const V bent = ratio_ == Ratio::TwoToOne ? root : root * sqrtLanes<V>(root);
        return bent * (1.0 - rangeFloor) + rangeFloor;
    }

private:
    static constexpr double kFlush = 1e-15;

    Ratio ratio_ = Ratio::TwoToOne;
    double rangeFloor = 1.0;
    double ratioHold = 0.0;
    double ratioSmooth = 0.0;
};

} // namespace velmora
