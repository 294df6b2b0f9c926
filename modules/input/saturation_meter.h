#pragma once

#include "dsp/flush.h"
#include "dsp/lanes.h"
#include "dsp/meter_cell.h"

namespace velmora::preamp {

/// The emulation's saturation reading, 0..1. Any thread may read it; a block follows the level in a local and
/// shows it at its end.
class SaturationMeter {
public:
    void clear() { level_ = 0.0; }
    double level() const { return level_; }
    void show(double level) { level_ = level; }

    /// The next level: jumps up to a higher reading, falls back by a share per sample, at most 1.
    VELMORA_KERNEL static double peak(double now, double m, double fall)
    {
        const double fallen = now + (m - now) * fall; // stays below a higher reading
        const double next = flush(m > fallen ? m : fallen, kFlush);
        return next > kFull ? kFull : next;
    }

    /// The next level: moves towards a reading by a share per sample.
    VELMORA_KERNEL static double glide(double now, double target, double share)
    {
        return flush((target - now) * share + now, kFlush);
    }

    static constexpr double kFull = 1.0;

private:
    static constexpr double kFlush = 1.0000000036274937e-15; // 1e-15 in single precision

    MeterCell level_;
};

} // namespace velmora::preamp
