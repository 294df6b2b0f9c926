#pragma once

namespace velmora::preamp {

/// Polarity of a rail. A flip ramps through zero in 8 ms.
class PolarityRamp {
public:
    void aim(bool inverted, double sampleRate)
    {
        target_ = inverted ? -1.0 : 1.0;
        step_ = target_ * kRampsPerSecond / sampleRate;
    }
    void land()
    {
        current_ = target_;
        step_ = 0.0;
    }

    /// Multiplies a block by the polarity, -1..1; advances a ramp.
    void process(const double* in, double* out, int count)
    {
        int i = 0;
        for (; i < count && step_ != 0.0; ++i) out[i] = in[i] * advance();
        for (const double polarity = current_; i < count; ++i) out[i] = in[i] * polarity;
    }

private:
    static constexpr double kRampsPerSecond = 250.0; // from 0 to full

    double advance()
    {
        current_ += step_;
        if (step_ < 0.0 ? target_ >= current_ : current_ >= target_) land();
        return current_;
    }

    double target_ = 1.0;
    double current_ = 1.0;
    double step_ = 0.0;
};

} // namespace velmora::preamp
