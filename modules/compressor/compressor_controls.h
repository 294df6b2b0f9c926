#pragma once

#include "dsp/flush.h"
#include "dsp/lanes.h"

namespace velmora {

/// A control that glides to its target by one pole.
struct GlidingControl {
    double target = 1.0;
    double now = 1.0;

    void land() { now = target; }

    /// Whether a step would leave it where it is. It ends there, though maybe a last bit beside the target.
    VELMORA_KERNEL bool rests(double s) const { return next(s) == now; }

    /// The values of the next `count` samples, 1 to the number of lanes. @param s one-pole step
    template <typename V>
    VELMORA_KERNEL V advance(bool resting, double s, std::size_t count)
    {
        V values = allLanes<V>(now);
        if (resting) return values;
        for (std::size_t i = 0; i < count; ++i) values[i] = now = next(s);
        return values;
    }

private:
    static constexpr double kFlush = 1e-16;

    VELMORA_KERNEL double next(double s) const { return flush((target - now) * s + now, kFlush); }
};

/// Controls of some samples side by side.
template <typename V>
struct ControlValues {
    V threshold, makeup, fetRatio, optoRatio, mix;
};

/// Controls that glide per sample, and which of them do so in this block.
class CompressorControls {
public:
    GlidingControl threshold; ///< linear, multiplies the detectors' input
    GlidingControl makeup;    ///< linear gain
    GlidingControl fetRatio;
    GlidingControl optoRatio;
    GlidingControl mix; ///< share of the compressed signal, 0..1

    /// Looks which controls rest, for the block to come. @param s one-pole step
    VELMORA_KERNEL void begin(double s)
    {
        step = s;
        thresholdRests = threshold.rests(s);
        makeupRests = makeup.rests(s);
        fetRatioRests = fetRatio.rests(s);
        optoRatioRests = optoRatio.rests(s);
        mixRests = mix.rests(s);
    }

    template <typename V>
    VELMORA_KERNEL ControlValues<V> advance(std::size_t count)
    {
        return {threshold.advance<V>(thresholdRests, step, count),
                makeup.advance<V>(makeupRests, step, count), fetRatio.advance<V>(fetRatioRests, step, count),
                optoRatio.advance<V>(optoRatioRests, step, count), mix.advance<V>(mixRests, step, count)};
    }

private:
    double step = 0.0;
    bool thresholdRests = false;
    bool makeupRests = false;
    bool fetRatioRests = false;
    bool optoRatioRests = false;
    bool mixRests = false;
};

} // namespace velmora
