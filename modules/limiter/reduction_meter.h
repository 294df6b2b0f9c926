#pragma once

#include "dsp/level_detector.h"
#include "dsp/meter_cell.h"
#include "dsp/one_pole.h"
#include "modules/limiter/limiter_window.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

namespace velmora::limiter {

/// Gain-reduction reading: follows what the gains of a block take away, rises fast and recovers slowly.
class ReductionMeter {
public:
    /// @param rateScale share of the meter's own rate
    void setRate(double hz, double rateScale)
    {
        const double recovery = rateScale * onePoleRate(kSeconds, hz, kResidue);
        rates = LevelRates(std::sqrt(recovery), recovery);
    }
    void reset()
    {
        detector.reset(1.0);
        meter = 0.0;
    }
    /// Reading to no reduction; the follower stays.
    void showNone() { meter = 0.0; }

    /// Takes a chunk or a part of one in.
    void follow(const double* gains, std::int32_t count)
    {
        std::array<double, kChunk> reduction;
        for (unsigned i = 0; i < static_cast<unsigned>(count); ++i) reduction[i] = 1.0 - gains[i];
        detector.processBlock(reduction.data(), count, rates);
    }
    /// Publishes the reading.
    void show() { meter = detector.level(); }

    /// @return reduction 0..1, 0 for none
    double reading() const { return std::clamp<double>(meter, 0.0, 1.0); }

private:
    static constexpr double kSeconds = 0.3f; // single precision, widened
    static constexpr double kResidue = 0.109;

    LevelDetector detector;
    LevelRates rates;
    MeterCell meter;
};

} // namespace velmora::limiter
