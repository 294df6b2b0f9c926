#pragma once

#include "modules/input/decade_constants.h"
#include "modules/input/rails.h"

#include <array>
#include <cmath>

namespace velmora::preamp {

/// First stage of the 60s and 70s. A soft saturation curve, evaluated at a bias that follows the low-passed
/// signal, becomes a gain for the sample: the stage rides on its slow bias and modulates itself.
class BiasedStage {
public:
    /// Constants of a decade at a rate.
    struct Coefficients {
        double inGain = 0.0;
        double outGain = 0.0;
        double saturationB = 0.0;
        double saturationC = 0.0;
        double restBias = 0.0;
        double slope = 0.0;
        double denominatorSlope = 0.0;
        double slow = 0.0;
    };

    static Coefficients coefficients(const BiasedStageConstants& c, double sampleRate)
    {
        return {
            .inGain = c.inGain,
            .outGain = c.outGain,
            .saturationB = c.saturationB,
            .saturationC = std::pow(64.0, c.saturationA) / 16.0,
            .restBias = c.saturationA * 0.2,
            .slope = 2.8 - c.saturationA * 1.5,
            .denominatorSlope = 1.4 - c.saturationA * 0.75,
            .slow = 1.0 - std::exp(-c.slowW / sampleRate),
        };
    }

    explicit BiasedStage(const std::array<double, kRails>& curveTrim) : curveTrim_{curveTrim[0], curveTrim[1]}
    {
    }

    void reset() { slowState_ = Rails{}; }

    /// Signal at the stage's input, and the bias that it meets there.
    struct Driven {
        Rails signal;
        Rails bias;
    };

    /// The serial half, for one sample: the bias follows the signal.
    VELMORA_KERNEL Driven follow(const Rails& x, double drive, const Coefficients& c)
    {
        const Driven driven{zeroNanLanes(drive * x * c.inGain), slowState_};
        slowState_ = flushLanes((driven.signal * 0.25 - slowState_) * c.slow + slowState_, kFlush);
        return driven;
    }

    /// The curve, for a vector of samples of both rails. @param s, slow as `follow` gives them.
    template <typename V>
    VELMORA_KERNEL V curve(const V& s, const V& slow, const Coefficients& c) const
    {
        const V trim = repeated<V>(curveTrim_);
        const V b = c.restBias + (slow * 0.998 + s * 0.002) * trim * c.saturationC * c.saturationB;
        const V den = c.denominatorSlope * b * kAtan2;
        const V z = c.slope * b;
        const V zz = z * z;
        const V y = (2.0 * zz + 30.0) * z / (2.0 * 4.8 * zz + 30.0) * s * 0.25 * 1.07 * c.outGain / den;
        return choose<V>(den == 0.0, V{}, y);
    }

private:
    static constexpr double kFlush = 1e-16;
    static constexpr double kAtan2 = 1.1071487177940904; // atan(2)

    Rails curveTrim_;
    Rails slowState_{};
};

} // namespace velmora::preamp
