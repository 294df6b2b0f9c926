#pragma once

#include "dsp/biquad_design.h"
#include "dsp/coefficient_glide.h"
#include "dsp/flush.h"

#include <cmath>
#include <cstdint>

namespace velmora {

/// Section of the filters module: the strip's second-order section, which glides to each new design, joined
/// by two one-pole kinds. Unlike `StripBiquad` it is designed while it is off too, so that switching it on
/// lands on its settings at once.
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
        if (!enabled_ || settings_.kind == StripBiquadKind::None) return x;
        const double x0 = std::isnan(x) ? 0.0 : x;
        return isOnePole() ? runOnePole(x0) : runBiquad(x0);
    }

private:
    static constexpr double kFlush = 1e-30;
    static constexpr double kCoefficientFlush = 1e-18;
    static constexpr double kCoefficientStep = 0.001; // share of the way that a glide's sample makes

    bool isOnePole() const { return settings_.kind == kOnePoleHighPass || settings_.kind == kOnePoleLowPass; }

    // The order of the terms is part of the sound.
    double runBiquad(double x0)
    {
        const BiquadCoefficients& c = glide_.advance();
        double y = flush(c.b0 * x0 + c.b1 * x1_ + c.b2 * x2_ - c.a1 * y1_ - c.a2 * y2_, kFlush);
        if (std::isnan(y)) y = y1_ = 0.0;
        x2_ = x1_;
        x1_ = x0;
        y2_ = y1_;
        y1_ = y;
        return y;
    }

    double runOnePole(double x0)
    {
        advanceOnePole();
        double y = flush((x0 - y1_) * onePole_ + y1_, kFlush);
        if (std::isnan(y)) y = 0.0;
        y1_ = y;
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

    void clearHistory() { x1_ = x2_ = y1_ = y2_ = 0.0; }
    void redesign();

    BiquadSettings settings_;
    bool enabled_ = false;
    CoefficientGlide glide_;
    double onePole_ = 0.0; ///< 0..1, share of a step that one sample makes
    double onePoleTarget_ = 0.0;
    double x1_ = 0.0, x2_ = 0.0;
    double y1_ = 0.0, y2_ = 0.0;
};

} // namespace velmora
