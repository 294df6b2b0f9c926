#pragma once

#include "dsp/meter_cell.h"
#include "dsp/one_pole.h"
#include "dsp/rise_fall_follower.h"

#include <algorithm>

namespace velmora::limiter {

/// Gain-reduction reading: follows the gains of a block, drops fast and recovers slowly.
class ReductionMeter {
public:
    void setSampleRate(double hz) { grRate = onePoleRate(kSeconds, hz, kResidue); }
    void reset()
    {
        grFollower.reset(0.0);
        grMeter = 0.0;
    }
    /// Reading to no reduction; the follower stays.
    void showNone() { grMeter = 0.0; }

    /// @param rateScale share of the meter's own rate
    void follow(const double* gains, int count, double rateScale)
    {
        grFollower.setRiseCoefficient(rateScale * grRate);
        grFollower.process(gains, count);
    }
    /// Publishes the reading.
    void show() { grMeter = 1.0 - grFollower.value(); }

    /// @return reduction 0..1, 0 for none
    double reading() const { return std::clamp<double>(grMeter, 0.0, 1.0); }

private:
    static constexpr double kSeconds = 0.3f; // single precision, widened
    static constexpr double kResidue = 0.109;

    RiseFallFollower grFollower;
    double grRate = 0.0;
    MeterCell grMeter;
};

} // namespace velmora::limiter
