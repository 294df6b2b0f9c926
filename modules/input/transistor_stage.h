#pragma once

#include "dsp/flush.h"
#include "modules/input/dc_blocker.h"

#include <algorithm>

namespace velmora::preamp {

/// Second stage of the 70s and 80s: a parabolic clipper, even harmonics from the low-passed signal, and the
/// transformer's high-pass.
class TransistorStage {
public:
    struct Coefficients {
        double bias = 0.0;     ///< before the unit's trim; 0 without bias
        double harmonic = 0.0; ///< low-pass of the even-harmonic stage, per sample
        double makeUp = 1.0;
        double outGain = 1.0;
        DcBlocker::Coefficients highPass;
    };

    explicit TransistorStage(double biasTrim) : biasTrim_(biasTrim) {}

    void reset()
    {
        harmonicState_ = 0.0;
        highPass_.reset();
    }

    /// Level at the clipper of a sample behind the stage's input gain; the saturation meter reads it.
    static double level(double v) { return std::clamp(v * 0.7071 * 0.7071 * 0.25, -kLimit, kLimit); }

    /// @param a as `level` gives it.
    double process(double a, const Coefficients& c)
    {
        const double q = 2.0 * clip(a * 0.5);
        harmonicState_ =
            flush((c.bias * biasTrim_ + q - harmonicState_) * c.harmonic + harmonicState_, kFlush);
        const double even = harmonicState_ * harmonicState_ * 0.25;
        const double e = (harmonicState_ >= 0.0 ? q - even : q + even) * 8.0 * 1.4142;
        return highPass_.process(e, c.highPass) * 1.4142 * c.makeUp * c.outGain;
    }

private:
    static constexpr double kFlush = 1e-16;
    static constexpr double kLimit = 4.0;

    // Parabola that reaches its ceiling of 1 with slope 0 at 2.
    static double clip(double h)
    {
        if (h >= 0.0) return h < 2.0 ? h - h * h * 0.25 : 1.0;
        return h > -2.0 ? h + h * h * 0.25 : -1.0;
    }

    double biasTrim_;
    double harmonicState_ = 0.0;
    DcBlocker highPass_;
};

} // namespace velmora::preamp
