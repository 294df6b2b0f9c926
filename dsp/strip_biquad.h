#pragma once

#include "dsp/biquad_design.h"
#include "dsp/coefficient_glide.h"
#include "dsp/flush.h"

#include <cmath>
#include <cstdint>

namespace velmora {

/// Last two inputs and outputs of a section.
struct BiquadHistory {
    double x1 = 0.0, x2 = 0.0;
    double y1 = 0.0, y2 = 0.0;
};

/// The strip's second-order section in double precision. A change of any setting redesigns it and starts a
/// glide to the new design, so it never jumps. It heals itself of NaN at input and output.
///
/// Setters only mark the design stale; it is made once, when the next sample runs or something else depends
/// on it. Nothing tells it from one made at once: a glide aimed twice without a sample between is one aimed
/// once.
class StripBiquad {
public:
    /// As `initStripBiquad` with the start values of most modules: 44100 Hz, 1000 Hz, Q 1, 0 dB.
    explicit StripBiquad(StripBiquadKind kind = StripBiquadKind::None, double frequency = 1000.0,
                         double q = 1.0, double gainDb = 0.0);

    /// Stores the five values as given, unclamped, and takes the neutral state: disabled, unity, at rest. It
    /// doesn't design; the first setter does. A glide lasts 60 ms at this rate, and keeps that many samples.
    void initStripBiquad(double sampleRate, StripBiquadKind kind, double frequency, double q, double gainDb);

    void setKind(std::int32_t kind); ///< anything outside 0..10 becomes None
    void setFrequency(double hz);    ///< clamped to 0.001 Hz .. sample rate
    void setQ(double q);             ///< clamped to 0.0001 .. 1000
    void setGainDb(double db);       ///< clamped to -1000 .. 1000 dB
    /// The four at once, clamped like each alone: one design and one glide in place of four.
    void setDesign(StripBiquadKind kind, double hz, double q, double db);
    void setSampleRate(double hz); ///< clamped to 44100 .. 384000 Hz; the glide's length stays

    /// Switches the section on or off: clears the history and lands on the target. It doesn't redesign, and a
    /// section designed while disabled has a unity target: set a design value after enabling.
    void setEnabled(bool enabled);

    void setSoftLimit(bool on);
    /// Strength of the limit inside the feedback loop; stored in thousandths.
    void setSoftLimitAmount(double thousandths);

    void resetState(); ///< clears the history and lands on the target
    void snapToTarget()
    {
        settle();
        glide_.snap();
    }
    void snapCoefficients()
    {
        settle();
        glide_.snapCoefficients();
    }

    /// One sample; advances a glide.
    double runSample(double x)
    {
        if (settings_.kind == StripBiquadKind::None) return x;
        if (!enabled_) return passDisabled(x);
        settle();
        return step(x, glide_.advance());
    }

    /// `count` samples in place; advances a glide. Nothing happens for a count of 0 or less.
    void runBlock(double* buffer, int count);

    /// One sample on the target coefficients: no glide, nothing of the roots touched.
    double runSampleFixed(double x)
    {
        settle();
        return step(x, glide_.target());
    }
    /// Hands `runSampleFixed` a design made outside: no glide, settings and roots stay.
    void setTargetCoefficients(const BiquadCoefficients& target)
    {
        settle();
        glide_.setTarget(target);
    }

    StripBiquadKind kind() const { return settings_.kind; }
    double frequency() const { return settings_.frequency; }
    double q() const { return settings_.q; }
    double gainDb() const { return settings_.gainDb; }
    double sampleRate() const { return settings_.sampleRate; }
    bool enabled() const { return enabled_; }
    const CoefficientGlide& glide() const
    {
        settle();
        return glide_;
    }
    /// Last output; 0 after a reset.
    double lastOutput() const { return history_.y1; }

    /// What a kernel needs to run the section among others, and to leave it behind as if it had run alone.
    struct Parts {
        CoefficientGlide& glide;
        BiquadHistory& history;
        double softLimitFactor; ///< 0 while the soft limit is off
    };
    Parts parts()
    {
        settle();
        return {glide_, history_, softLimit_ ? softLimitFactor_ : 0.0};
    }
    /// Whether samples pass untouched. What a disabled section remembers is lost with the first of them.
    bool passes() const { return settings_.kind == StripBiquadKind::None || !enabled_; }
    void passBlock()
    {
        if (settings_.kind != StripBiquadKind::None && !enabled_) history_ = {};
    }

    static constexpr double kFlush = 1e-30; ///< below it a result vanishes

private:
    static constexpr double kSoftLimitScale = 0.001;

    // The recursion of one sample before history moves on. Order of terms is part of the sound.
    template <bool softLimited>
    static double recursion(double x0, const BiquadCoefficients& c, const BiquadHistory& h, double factor)
    {
        const double r = c.b0 * x0 + c.b1 * h.x1 + c.b2 * h.x2 - c.a1 * h.y1 - c.a2 * h.y2;
        return softLimited ? r / (std::fabs(r) * factor + 1.0) : r;
    }

    // Whether something was NaN, or a result is small enough for the flush to change it. A branch on it,
    // which is almost never taken, keeps healing and flush out of the recursion's latency.
    static bool needsCare(double result) { return !(std::fabs(result) > 1e18 * kFlush); }

    // The same recursion with a healed input and flushed. @return NaN if the output needs healing.
    template <bool softLimited>
    static double carefully(double& x0, const BiquadCoefficients& c, const BiquadHistory& h, double factor)
    {
        if (std::isnan(x0)) x0 = 0.0;
        return flush(recursion<softLimited>(x0, c, h, factor), kFlush);
    }

    static void shift(BiquadHistory& h, double x0, double y)
    {
        h.x2 = h.x1;
        h.x1 = x0;
        h.y2 = h.y1;
        h.y1 = y;
    }

    double step(double x, const BiquadCoefficients& c)
    {
        return softLimit_ ? step<true>(x, c) : step<false>(x, c);
    }

    template <bool softLimited>
    double step(double x0, const BiquadCoefficients& c)
    {
        double y = recursion<softLimited>(x0, c, history_, softLimitFactor_);
        if (needsCare(y)) [[unlikely]] {
            y = carefully<softLimited>(x0, c, history_, softLimitFactor_);
            if (std::isnan(y)) y = history_.y1 = 0.0;
        }
        shift(history_, x0, y);
        return y;
    }

    double passDisabled(double x)
    {
        history_ = {};
        return x;
    }

    void settle() const
    {
        if (stale_) [[unlikely]]
            redesign();
    }
    void redesign() const;
    void updateSoftLimitFactor() const;
    template <bool softLimited>
    void runSpan(double* buffer, int count);

    BiquadSettings settings_;
    bool enabled_ = false;
    bool softLimit_ = false;
    double softLimitAmount_ = kSoftLimitScale;
    BiquadHistory history_;

    // What a design makes, and whether it is due.
    mutable bool stale_ = false;
    mutable double softLimitFactor_ = 0.0;
    mutable CoefficientGlide glide_;
};

} // namespace velmora
