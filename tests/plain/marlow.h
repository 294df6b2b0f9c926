#pragma once

#include "dsp/flush.h"
#include "dsp/strip_biquad.h"
#include "modules/marlow/detection_filter.h"
#include "params/laws/special_laws.h"

#include <array>
#include <cmath>

/// The dynamic EQ sample by sample, as its laws read, with the library's functions and every section designed
/// on every sample.
namespace velmora::plain {

/// Normalised values, 0..1, and the two choices.
struct MarlowValues {
    double threshold, time, frequency, above, below, q, transition;
    MarlowShape shape;
    MarlowControl control;
};

class Marlow {
public:
    Marlow(const MarlowValues& values, double rate)
        : rate_(rate), step_(1.0 - std::exp(-6.283 / (0.05 * rate)))
    {
        set(values);
        now_ = target_;
    }

    void set(const MarlowValues& v)
    {
        values_ = v;
        target_ = {marlow::frequencyHz(v.frequency), marlow::peakQ(v.q), marlow::shelfQ(v.q)};
    }

    double process(double x)
    {
        for (auto part : {&Band::hz, &Band::peakQ, &Band::shelfQ})
            now_.*part = flush(now_.*part + (target_.*part - now_.*part) * step_, 1e-18);
        const double level =
            20.0 * std::log10(std::fabs(detect(x)) + 1e-7) - marlow::thresholdDb(values_.threshold);
        const bool peak = values_.shape == MarlowShape::Peak;
        const StripBiquadKind kind = peak                                     ? StripBiquadKind::Peaking
                                     : values_.shape == MarlowShape::LowShelf ? StripBiquadKind::LowShelf
                                                                              : StripBiquadKind::HighShelf;
        return run(2, kind, now_.hz, peak ? now_.peakQ : now_.shelfQ, gain(level), x);
    }

private:
    struct Band {
        double hz, peakQ, shelfQ;
    };

    double run(std::size_t section, StripBiquadKind kind, double hz, double q, double gainDb, double x)
    {
        sections_[section].setTargetCoefficients(designBiquad({kind, hz, q, gainDb, rate_}));
        return sections_[section].runSampleFixed(x);
    }

    double detect(double x)
    {
        if (values_.control == MarlowControl::Off) return x;
        const bool direct = values_.control == MarlowControl::Direct;
        if (values_.shape == MarlowShape::Peak) {
            const StripBiquadKind kind = direct ? StripBiquadKind::BandPass : StripBiquadKind::Notch;
            return run(1, kind, now_.hz, now_.peakQ / 2.0, 0.0, run(0, kind, now_.hz, now_.peakQ, 0.0, x));
        }
        const bool low = (values_.shape == MarlowShape::LowShelf) == direct;
        const StripBiquadKind kind = low ? StripBiquadKind::LowPass : StripBiquadKind::HighPass;
        const double first = run(0, kind, now_.hz, now_.shelfQ, 0.0, x);
        return run(1, kind, low ? 2.0 * now_.hz : now_.hz / 2.0, 0.5, 0.0, first);
    }

    double gain(double level)
    {
        const double span = marlow::timeFactor(values_.time) * rate_;
        const double rise = 1.0 - std::exp(-6.283 * 0.25 * std::pow(target_.hz, 0.7071) / span);
        const double fall = 1.0 - std::exp(-6.283 * 0.1 * std::pow(target_.hz, 0.5) / span);
        const double above = marlow::gainDb(values_.above);
        const double below = marlow::gainDb(values_.below);
        const double up = above >= below ? rise : fall;
        const double down = above >= below ? fall : rise;
        const double to = (above + below) / 2.0 +
                          (above - below) / 2.0 * std::tanh(level / (48.0 * values_.transition / 2.0));
        fast_ = flush(fast_ + (to - fast_) * (to > fast_ ? up : down), 1e-18);
        slow_ = fast_ > slow_ ? fast_ : flush(slow_ + (fast_ - slow_) * down, 1e-18);
        return slow_;
    }

    double rate_;
    double step_;
    MarlowValues values_{};
    Band target_{};
    Band now_{};
    std::array<StripBiquad, 3> sections_;
    double fast_ = 0.0;
    double slow_ = 0.0;
};

} // namespace velmora::plain
