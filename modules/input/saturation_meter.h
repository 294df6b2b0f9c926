#pragma once

#include "dsp/flush.h"
#include "dsp/meter_cell.h"

namespace velmora::preamp {

/// The emulation's saturation reading, 0..1. Any thread may read it.
class SaturationMeter {
public:
    void clear() { level_ = 0.0; }
    double level() const { return level_; }

    /// Jumps up to a higher reading, falls back by a share per sample, at most 1.
    void peak(double m, double fall)
    {
        const double now = level_;
        const double next = flush(m > now ? m : now + (m - now) * fall, kFlush);
        level_ = next > 1.0 ? 1.0 : next;
    }

    /// Moves towards a reading by a share per sample.
    void glide(double target, double share)
    {
        const double now = level_;
        level_ = flush((target - now) * share + now, kFlush);
    }

    void full() { level_ = 1.0; }

private:
    static constexpr double kFlush = 1.0000000036274937e-15; // 1e-15 in single precision

    MeterCell level_;
};

} // namespace velmora::preamp
