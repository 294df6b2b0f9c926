#pragma once

#include "dsp/flush.h"
#include "dsp/strip_biquad.h"
#include "modules/output/fader_smoother.h"

#include <cmath>

namespace velmora::plain {

/// The master control's mono form, sample by sample.
class MasterControl {
public:
    explicit MasterControl(double sampleRate)
        : meanSquare_(StripBiquadKind::LowPass, 1.0, 0.5),
          fall_(1.0 - std::pow(0.109, 1.0 / (1.2 * sampleRate)))
    {
        fader_.setCoefficient(44.1000020946376 / sampleRate);
        meanSquare_.setEnabled(true);
        meanSquare_.setSampleRate(sampleRate);
        meanSquare_.resetState();
    }

    double process(double x, double gainTarget, bool afterFader)
    {
        const double y = x * fader_.process(gainTarget);
        const double magnitude = std::fabs(afterFader ? y : x);
        run_ = magnitude >= 1.0 ? run_ + 1 : 0;
        clipped |= run_ >= 3;
        peak = magnitude > peak ? magnitude : flush(peak - peak * fall_, 1e-30);
        rms = std::sqrt(std::fmax(meanSquare_.runSample(magnitude * magnitude), 0.0));
        return y;
    }

    double peak = 0.0;
    double rms = 0.0;
    bool clipped = false;

private:
    FaderSmoother fader_;
    StripBiquad meanSquare_;
    double fall_;
    int run_ = 0;
};

} // namespace velmora::plain
