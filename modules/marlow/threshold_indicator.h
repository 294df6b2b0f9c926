#pragma once

#include "dsp/flush.h"
#include "dsp/lanes.h"

namespace velmora {

/// Says whether the smoothed level stands above the threshold (towards +1) or below (towards -1).
class ThresholdIndicator {
public:
    void reset() { levelSmooth = aboveBelowIndicator = 0.0; }

    /// @param level dB against the threshold; @param k step of one sample, 0..1.
    VELMORA_KERNEL void follow(double level, double k)
    {
        const double twice = (2.0 - k) * k; // two steps to one level at once
        levelSmooth = flush(levelSmooth + (level - levelSmooth) * twice, kFlush);
        const double move = levelSmooth >= 0.0 ? (1.0 - aboveBelowIndicator) * k //
                                               : -(aboveBelowIndicator + 1.0) * k;
        aboveBelowIndicator = flush(aboveBelowIndicator + move, kFlush);
    }

    double value() const { return aboveBelowIndicator; }

private:
    static constexpr double kFlush = 1e-18;

    double levelSmooth = 0.0; ///< dB
    double aboveBelowIndicator = 0.0;
};

} // namespace velmora
