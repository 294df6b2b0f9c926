#pragma once

#include "dsp/flush.h"

#include <cmath>

namespace velmora::preamp {

/// Output transformer of the 70s and 80s: a second-order high-pass at 2 Hz in direct form, Q 0.5.
class DcBlocker {
public:
    struct Coefficients {
        double b0 = 1.0, b1 = 0.0, b2 = 0.0, a1 = 0.0, a2 = 0.0;
    };

    static Coefficients design(double sampleRate)
    {
        const double x = kW / sampleRate;
        const double s = std::sin(x);
        const double c = std::cos(x);
        const double g = 1.0 / (s + 1.0);
        const double b0 = (c + 1.0) * 0.5 * g;
        return {b0, -(c + 1.0) * g, b0, -2.0 * c * g, (1.0 - s) * g};
    }

    void reset() { x1_ = x2_ = y1_ = y2_ = 0.0; }

    double process(double x, const Coefficients& c)
    {
        const double y = flush(c.b0 * x + c.b1 * x1_ + c.b2 * x2_ - c.a1 * y1_ - c.a2 * y2_, kFlush);
        x2_ = x1_;
        x1_ = x;
        y2_ = y1_;
        y1_ = y;
        return y;
    }

private:
    static constexpr double kW = 12.566370614359172; // rad/s
    static constexpr double kFlush = 1e-30;

    double x1_ = 0.0, x2_ = 0.0;
    double y1_ = 0.0, y2_ = 0.0;
};

} // namespace velmora::preamp
