#pragma once

#include "dsp/flush.h"
#include "modules/deesser/sibilance_rates.h"

namespace velmora::plain {

/// Levels of whole signal and band, and the ratio that makes the gain, one after the other.
struct SibilanceFollowers {
    static constexpr double kFlush = 1e-15;

    double wideFast = 0.0, wideSlow = 0.0, bandFast = 0.0, bandSlow = 0.0;
    double ratioHold = 0.0, ratioSmooth = 0.0;

    double follow(double wide, double band, const SibilanceRates& r)
    {
        wideFast += (wide - wideFast) * (wide > wideFast ? r.riseFast : r.fallFast);
        wideSlow += (wideFast - wideSlow) * (wideFast > wideSlow ? r.riseSlow : r.fallSlow);
        wideFast = flush(wideFast, kFlush);
        wideSlow = flush(wideSlow, kFlush);
        bandFast = flush(bandFast + (band - bandFast) * r.riseFast, kFlush);
        bandSlow += (bandFast - bandSlow) * (bandFast > bandSlow ? r.riseFast : r.fallFast);
        bandSlow = flush(bandSlow, kFlush);

        const double ratio = (wideSlow + 1e-7 + 0.001) / (bandSlow + 1e-8 + 1e-10);
        ratioHold = flush(ratioHold > ratio ? ratio : ratioHold + (1.0 - ratioHold) * r.riseFast, kFlush);
        ratioSmooth += (ratioHold - ratioSmooth) * (ratioSmooth > ratioHold ? r.riseFast : r.recover);
        ratioSmooth = flush(ratioSmooth, kFlush);
        return ratioSmooth;
    }
};

} // namespace velmora::plain
