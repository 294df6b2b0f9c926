#pragma once

#include "dsp/flush.h"
#include "dsp/run_widest.h"
#include "dsp/vector_math.h"
#include "modules/expander/hold_counter.h"
#include "modules/expander/release_shape.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

/// The three laws by which the key's level moves the gain. `level` is the key's magnitude as a share of the
/// threshold: 1 is the threshold. `prepare` takes the levels of a block, `advance` what became of them one by
/// one. All of them work on a gain of 0..1 that the range then lifts off its floor.
namespace velmora {

/// One channel's gain.
struct GainState {
    double envelope = 0.0; ///< raw gain, 0..1
    double smoothed = 0.0; ///< what makes the gain, 0..1
    HoldCounter holdCount;
};

/// What the laws are set to. @unit coefficients 0..1 per sample.
struct GainTiming {
    double attackCoefficient = 0.0;
    ReleaseShape release;
    double smoothingCoefficient = 0.0;
    std::int32_t holdSamples = 0;
};

inline constexpr double kGainFlush = 1e-15;

inline double flushedGain(double v)
{
    return std::clamp(flush(v, kGainFlush), 0.0, 1.0);
}

/// Power of the expander by ratio index; index 0 doesn't expand.
inline constexpr std::array<double, 11> kExpanderExponents{0.0, 0.1, 0.23, 0.35, 0.5, 0.7,
                                                           1.0, 1.5, 2.2,  4.0,  9.0};

/// Below the threshold the gain follows the level's power.
struct ExpanderRule {
    GainTiming timing;
    double exponent; ///< 0: gain 1 at any level

    /// Levels become the gains that they ask for.
    void prepare(double* levels, std::size_t count) const
    {
        if (exponent == 0.0) {
            std::fill_n(levels, count, 1.0);
            return;
        }
        runWidest([=, e = exponent](auto width) VELMORA_KERNEL_LAMBDA {
            using V = Lanes<width>;
            mapLanes<V>(levels, levels, count, [e](const V& level) VELMORA_KERNEL_LAMBDA {
                return choose<V>(level >= 1.0, allLanes<V>(1.0), powLanes<V>(level, allLanes<V>(e)));
            });
        });
    }

    /// @param t prepared level
    void advance(GainState& state, double t) const
    {
        double envelope = state.envelope;
        if (t > envelope) {
            // It heads for 1 and stops on the way, so a shallow rise is as fast as a deep one.
            const double risen = envelope + (1.0 - envelope) * timing.attackCoefficient;
            envelope = flush(std::min(risen, t), kGainFlush);
        } else {
            envelope = flushedGain(envelope - timing.release.step(envelope - t));
        }
        double smoothed = state.smoothed;
        if (smoothed < envelope) smoothed += (envelope - smoothed) * timing.attackCoefficient;
        state.smoothed = flush((envelope - smoothed) * timing.smoothingCoefficient + smoothed, kGainFlush);
        state.envelope = envelope;
    }
};

/// Opens at the threshold, closes after the hold.
struct GateRule {
    GainTiming timing;

    void prepare(double*, std::size_t) const {}

    void advance(GainState& state, double level) const
    {
        double& envelope = state.envelope;
        if (level >= 1.0) {
            state.holdCount.restart();
            envelope = flush((1.0 - envelope) * timing.attackCoefficient + envelope, kGainFlush);
        } else if (!state.holdCount.hold(timing.holdSamples)) {
            envelope = flushedGain(envelope - timing.release.step(envelope));
        }
        state.smoothed = envelope;
    }
};

/// The gate turned over: closes at the threshold, opens after the hold.
struct DuckerRule {
    GainTiming timing;

    void prepare(double*, std::size_t) const {}

    void advance(GainState& state, double level) const
    {
        double& envelope = state.envelope;
        if (level >= 1.0) {
            state.holdCount.restart();
            envelope = flushedGain(envelope - timing.attackCoefficient * envelope);
        } else if (!state.holdCount.hold(timing.holdSamples)) {
            envelope = flushedGain(envelope + timing.release.step(1.0 - envelope));
        }
        state.smoothed = envelope;
    }
};

} // namespace velmora
