#pragma once

#include <cmath>
#include <numbers>

namespace velmora::demo {

/// Two-pole resonator with zeros at 0 and at half the rate, so that its peak gain is close to 1 at every
/// frequency and width.
class Resonator {
public:
    /// @unit Hz
    void tune(double frequency, double bandwidth, double sampleRate)
    {
        const double radius = std::exp(-std::numbers::pi * bandwidth / sampleRate);
        gain_ = 0.5 * (1.0 - radius * radius);
        a1_ = 2.0 * radius * std::cos(2.0 * std::numbers::pi * frequency / sampleRate);
        a2_ = -radius * radius;
    }
    double process(double x)
    {
        const double y = gain_ * (x - x2_) + a1_ * y1_ + a2_ * y2_;
        x2_ = x1_;
        x1_ = x;
        y2_ = y1_;
        y1_ = y;
        return y;
    }

private:
    double gain_ = 0.0, a1_ = 0.0, a2_ = 0.0;
    double x1_ = 0.0, x2_ = 0.0, y1_ = 0.0, y2_ = 0.0;
};

} // namespace velmora::demo
