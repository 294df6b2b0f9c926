#pragma once

#include "modules/input/rails.h"

#include <array>

namespace velmora::preamp {

/// Second stage of the 70s and 80s, in front of its output transformer: a parabolic clipper, and even
/// harmonics from the low-passed signal.
class TransistorStage {
public:
    struct Coefficients {
        double bias = 0.0;     ///< before the unit's trim; 0 without bias
        double harmonic = 0.0; ///< low-pass of the even-harmonic stage, per sample
        double makeUp = 1.0;
        double outGain = 1.0;
    };

    explicit TransistorStage(const std::array<double, kRails>& biasTrim) : biasTrim_{biasTrim[0], biasTrim[1]}
    {
    }

    void reset() { harmonicState_ = Rails{}; }

    /// Level at the clipper of a sample behind the stage's input gain; the saturation meter reads it.
    VELMORA_KERNEL static Rails level(const Rails& v)
    {
        const Rails a = v * 0.7071 * 0.7071 * 0.25;
        return minLanes(allLanes<Rails>(kLimit), maxLanes(allLanes<Rails>(-kLimit), a));
    }

    /// The clipper. @param a as `level` gives it.
    VELMORA_KERNEL static Rails clip(const Rails& a) { return 2.0 * parabola(a * 0.5); }

    /// Even harmonics. @param q as `clip` gives it.
    VELMORA_KERNEL Rails bend(const Rails& q, const Coefficients& c)
    {
        harmonicState_ =
            flushLanes((c.bias * biasTrim_ + q - harmonicState_) * c.harmonic + harmonicState_, kFlush);
        const Rails even = harmonicState_ * harmonicState_ * 0.25;
        return choose<Rails>(harmonicState_ >= 0.0, q - even, q + even) * 8.0 * 1.4142;
    }

private:
    static constexpr double kFlush = 1e-16;
    static constexpr double kLimit = 4.0;

    // Reaches its ceiling of 1 with slope 0 at 2.
    VELMORA_KERNEL static Rails parabola(const Rails& h)
    {
        const Rails bend = h * h * 0.25;
        const Rails upper = choose<Rails>(h < 2.0, h - bend, allLanes<Rails>(1.0));
        const Rails lower = choose<Rails>(h > -2.0, h + bend, allLanes<Rails>(-1.0));
        return choose<Rails>(h >= 0.0, upper, lower);
    }

    Rails biasTrim_;
    Rails harmonicState_{};
};

} // namespace velmora::preamp
