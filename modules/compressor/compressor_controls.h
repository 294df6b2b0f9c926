#pragma once

#include "dsp/flush.h"
#include "dsp/lanes.h"

namespace velmora {

/// A control that glides to its target by one pole.
struct GlidingControl {
    double target = 1.0;
    double now = 1.0;

    void land() { now = target; }

    /// Looks whether it rests, for the block to come: where a step leaves it as it is, though maybe a last
    /// bit beside the target. @param s one-pole step
    VELMORA_KERNEL void begin(double s) { rests = next(s) == now; }

    /// The values of the next `count` samples, 1 to the number of lanes.
    template <typename V>
    VELMORA_KERNEL V advance(double s, std::size_t count)
    {
        V values = allLanes<V>(now);
        if (rests) return values;
        for (std::size_t i = 0; i < count; ++i) values[i] = now = next(s);
        return values;
    }

private:
    static constexpr double kFlush = 1e-16;

    VELMORA_KERNEL double next(double s) const { return flush((target - now) * s + now, kFlush); }

    bool rests = false;
};

/// Controls of some samples side by side.
template <typename V>
struct ControlValues {
    V threshold, makeup, fetRatio, optoRatio, mix;
};

/// Controls that glide per sample.
struct CompressorControls {
    GlidingControl threshold; ///< linear, multiplies the detectors' input
    GlidingControl makeup;    ///< linear gain
    GlidingControl fetRatio;
    GlidingControl optoRatio;
    GlidingControl mix; ///< share of the compressed signal, 0..1

    /// At the head of a block. @param s one-pole step
    VELMORA_KERNEL void begin(double s)
    {
        threshold.begin(s);
        makeup.begin(s);
        fetRatio.begin(s);
        optoRatio.begin(s);
        mix.begin(s);
    }

    /// The next `count` samples of the block.
    template <typename V>
    VELMORA_KERNEL ControlValues<V> advance(double s, std::size_t count)
    {
        return {threshold.advance<V>(s, count), makeup.advance<V>(s, count), fetRatio.advance<V>(s, count),
                optoRatio.advance<V>(s, count), mix.advance<V>(s, count)};
    }
};

} // namespace velmora
