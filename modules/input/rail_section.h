#pragma once

#include "dsp/biquad_design.h"
#include "dsp/flush.h"
#include "modules/input/rails.h"

#include <array>

namespace velmora::preamp {

/// What a section does about NaN.
enum class Healing {
    None,            ///< its input is always finite
    Output,          ///< reads and leaves 0 in its place
    OutputAndHistory ///< forgets the output before it as well
};

/// Designs of a component of each rail.
using RailDesigns = std::array<BiquadCoefficients, kRails>;

/// Second-order section in direct form for both rails, with the coefficients of a built circuit: they don't
/// glide.
template <Healing healing = Healing::Output>
class RailSection {
public:
    /// Takes over a design; the history stays.
    void tune(const RailDesigns& designs)
    {
        const BiquadCoefficients& l = designs[0];
        const BiquadCoefficients& r = designs[1];
        b0_ = Rails{l.b0, r.b0};
        b1_ = Rails{l.b1, r.b1};
        b2_ = Rails{l.b2, r.b2};
        a1_ = Rails{l.a1, r.a1};
        a2_ = Rails{l.a2, r.a2};
    }
    void reset() { x1_ = x2_ = y1_ = y2_ = Rails{}; }
    void land(const RailDesigns& designs)
    {
        tune(designs);
        reset();
    }

    VELMORA_KERNEL Rails process(Rails x)
    {
        if constexpr (healing != Healing::None) x = zeroNanLanes(x);
        Rails y = flushLanes(b0_ * x + b1_ * x1_ + b2_ * x2_ - a1_ * y1_ - a2_ * y2_, kFlush);
        const MaskOf<Rails> number = y == y;
        x2_ = x1_;
        x1_ = x;
        y2_ = healing == Healing::OutputAndHistory ? keepWhere(number, y1_) : y1_;
        if constexpr (healing != Healing::None) y = keepWhere(number, y);
        y1_ = y;
        return y;
    }

private:
    static constexpr double kFlush = 1e-30;

    Rails b0_{1.0, 1.0}, b1_{}, b2_{}, a1_{}, a2_{};
    Rails x1_{}, x2_{}, y1_{}, y2_{};
};

} // namespace velmora::preamp
