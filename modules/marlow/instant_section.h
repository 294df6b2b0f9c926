#pragma once

#include "dsp/biquad_design.h"
#include "dsp/strip_biquad.h"

namespace velmora {

/// A section that may be redesigned on every sample: no glide, the new design acts at once. A design whose
/// inputs stand still is kept, and a moving gain alone keeps its share of frequency and Q.
class InstantSection {
public:
    void setSampleRate(double hz)
    {
        settings_ = {.sampleRate = hz};
        section_.setTargetCoefficients({});
    }
    void reset() { section_.resetState(); }

    /// @param hz below the sample rate; @param gainDb only for shelves and peaking.
    void design(StripBiquadKind kind, double hz, double q, double gainDb = 0.0)
    {
        const bool sameCurve = kind == settings_.kind && hz == settings_.frequency && q == settings_.q;
        if (sameCurve && gainDb == settings_.gainDb) return;
        settings_ = {kind, hz, q, gainDb, settings_.sampleRate};
        if (!sameCurve) prewarp_ = prewarpBiquad(settings_);
        section_.setTargetCoefficients(designBiquad(settings_, prewarp_));
    }

    double process(double x) { return section_.runSampleFixed(x); }

private:
    BiquadSettings settings_; // kind None until the first design
    BiquadPrewarp prewarp_;
    StripBiquad section_;
};

} // namespace velmora
