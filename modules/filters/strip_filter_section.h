#pragma once

#include "dsp/biquad_design.h"
#include "dsp/coefficient_glide.h"
#include "dsp/flush.h"
#include "dsp/strip_biquad.h"

#include <cmath>
#include <cstdint>

namespace velmora {

/// Section of the filters module: the strip's second-order section, which glides to each new design, joined
/// by two one-pole kinds. Unlike `StripBiquad` it is designed while it is off too, so that switching it on
/// lands on its settings at once. Settings only mark it stale; the next sample, or whatever lands on the
/// design, makes one design of them.
class StripFilterSection {
public:
    /// The high-pass of 6 dB per octave takes the number that the designs leave without an audio effect.
    static constexpr StripBiquadKind kOnePoleHighPass = StripBiquadKind::Smoother;
    static constexpr StripBiquadKind kOnePoleLowPass = StripBiquadKind::OnePoleLowPass;

    /// Disabled, at 44100 Hz and 0 dB; it doesn't design, the first setter does. Glides last 2646 samples.
    StripFilterSection(StripBiquadKind kind, double frequency, double q);

    void setKind(StripBiquadKind kind);
    void setFrequency(double hz); ///< clamped to 0.001 Hz .. sample rate
    void setQ(double q);          ///< clamped to 0.0001 .. 1000
    /// Both in one design.
    void setFrequencyAndQ(double hz, double q);
    void setGainDb(double db);     ///< clamped to -1000 .. 1000 dB
    void setSampleRate(double hz); ///< clamped to 44100 .. 384000 Hz

    /// A change clears the history and lands on the design.
    void setEnabled(bool enabled);

    /// Clears the history and lands on the design.
    void resetState();

    /// One sample; advances a glide. A disabled section returns its input and its glide stands still.
    double runSample(double x)
    {
        if (passes()) return x;
        settle();
        const double x0 = std::isnan(x) ? 0.0 : x;
        return isOnePole() ? runOnePole(x0) : runBiquad(x0);
    }

    StripBiquadKind kind() const { return settings_.kind; }
    bool isOnePole() const { return settings_.kind == kOnePoleHighPass || settings_.kind == kOnePoleLowPass; }

    /// Whether samples pass untouched, and what becomes of the section then: nothing.
    bool passes() const { return !enabled_ || settings_.kind == StripBiquadKind::None; }
    void passBlock() {}

    /// What a kernel needs to run the section among others, and to leave it behind as if it had run alone.
    struct Parts {
        CoefficientGlide& glide; ///< of a one-pole only the samples left
        BiquadHistory& history;  ///< of a one-pole only y1
        double softLimitFactor;  ///< none
        double& onePole;
        double onePoleTarget;
    };
    Parts parts()
    {
        settle();
        return {glide_, history_, 0.0, onePole_, onePoleTarget_};
    }

    static constexpr double kCoefficientFlush = 1e-18;
    static constexpr double kCoefficientStep = 0.001; ///< share of the way that a glide's sample makes

private:
    static constexpr double kFlush = StripBiquad::kFlush;

    // The order of the terms is part of the sound.
    double runBiquad(double x0)
    {
        const BiquadCoefficients& c = glide_.advance();
        BiquadHistory& h = history_;
        double y = flush(c.b0 * x0 + c.b1 * h.x1 + c.b2 * h.x2 - c.a1 * h.y1 - c.a2 * h.y2, kFlush);
        if (std::isnan(y)) y = h.y1 = 0.0;
        h = {x0, h.x1, y, h.y1};
        return y;
    }

    double runOnePole(double x0)
    {
        advanceOnePole();
        double& level = history_.y1;
        double y = flush((x0 - level) * onePole_ + level, kFlush);
        if (std::isnan(y)) y = 0.0;
        level = y;
        return settings_.kind == kOnePoleHighPass ? x0 - y : y;
    }

    // Drifts while the glide's samples run down, then lands.
    void advanceOnePole()
    {
        if (glide_.gliding()) {
            glide_.advance();
            onePole_ = flush((onePoleTarget_ - onePole_) * kCoefficientStep + onePole_, kCoefficientFlush);
        } else {
            onePole_ = onePoleTarget_;
        }
    }

    void settle()
    {
        if (stale_) redesign();
    }
    void redesign();

    BiquadSettings settings_;
    bool enabled_ = false;
    CoefficientGlide glide_;
    double onePole_ = 0.0; ///< 0..1, share of a step that one sample makes
    double onePoleTarget_ = 0.0;
    BiquadHistory history_;
    bool stale_ = false; ///< settings have changed since the last design
};

} // namespace velmora
