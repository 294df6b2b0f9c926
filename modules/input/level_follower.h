#pragma once

#include "dsp/level_meter.h"
#include "dsp/meter_cell.h"

#include <cstdint>

namespace velmora::preamp {

/// Level behind the gain stage, by the law of the strip's level meters: 99 % of a step in 5.3 ms up, down to
/// 1/16 in 631 ms. Any thread may read the level.
class LevelFollower {
public:
    void setSampleRate(double hz) { rates_ = levelMeterRates(hz); }
    void reset()
    {
        detector_.reset();
        clearReading();
    }
    void clearReading() { level_ = 0.0; } ///< the detector itself runs on
    double level() const { return level_; }

    void follow(const double* block, std::int32_t count)
    {
        detector_.processBlock(block, count, rates_);
        level_ = detector_.level();
    }

private:
    LevelRates rates_;
    LevelDetector detector_;
    MeterCell level_;
};

} // namespace velmora::preamp
