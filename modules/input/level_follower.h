#pragma once

#include "dsp/flush.h"
#include "dsp/meter_cell.h"

#include <cmath>

namespace velmora::preamp {

/// Level behind the gain stage, by the law of the strip's level meters: 99 % of a step in 5.3 ms up, down to
/// 1/16 in 631 ms. Any thread may read the level.
class LevelFollower {
public:
    void reset(double sampleRate)
    {
        envelope_ = 0.0;
        level_ = 0.0;
        attack_ = 1.0 - std::pow(0.01, 1.0 / ((std::pow(101.0, 0.4) - 1.0) * sampleRate * 0.001));
        release_ = 1.0 - std::pow(0.0625, 1.0 / (std::pow(100.0, 0.4) * 100.0 * sampleRate * 0.001));
    }
    void clearReading() { level_ = 0.0; } ///< the envelope itself runs on
    double level() const { return level_; }

    void follow(double magnitude)
    {
        envelope_ =
            flush(envelope_ + (magnitude - envelope_) * (magnitude > envelope_ ? attack_ : release_), kFlush);
        level_ = envelope_;
    }

private:
    static constexpr double kFlush = 1e-14;

    double envelope_ = 0.0;
    double attack_ = 1.0;
    double release_ = 0.0;
    MeterCell level_;
};

} // namespace velmora::preamp
