#pragma once

#include "dsp/flush.h"
#include "modules/input/decade_constants.h"
#include "modules/input/rails.h"

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

    explicit BiasedStage(double curveTrim) : curveTrim_(curveTrim) {}

    void reset() { slowState_ = 0.0; }

    double process(double x, double drive, const Coefficients& c)
    {
        const double s = zeroIfNan(drive * x * c.inGain);
        const double follow = (slowState_ * 0.998 + s * 0.002) * curveTrim_ * c.saturationC * c.saturationB;
        slowState_ = flush((s * 0.25 - slowState_) * c.slow + slowState_, kFlush);

        const double b = c.restBias + follow;
        const double den = c.denominatorSlope * b * kAtan2;
        if (den == 0.0) return 0.0;
        const double z = c.slope * b;
        const double zz = z * z;
        return (2.0 * zz + 30.0) * z / (2.0 * 4.8 * zz + 30.0) * s * 0.25 * 1.07 * c.outGain / den;
    }

private:
    static constexpr double kFlush = 1e-16;
    static constexpr double kAtan2 = 1.1071487177940904; // atan(2)

    double curveTrim_;
    double slowState_ = 0.0;
};

} // namespace velmora::preamp
