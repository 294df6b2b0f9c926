#pragma once

#include "dsp/flush.h"

#include <array>

namespace velmora {

/// Fader gain smoother: three equal one-pole stages in a row, so that a move starts and ends softly.
/// @unit linear gain; @range coefficient 0..1 per sample.
class FaderSmoother {
public:
    void setCoefficient(double gainCoefficient) { gainCoefficient_ = gainCoefficient; }
    /// Ends a glide at once.
    void reset(double gain) { gainStage_.fill(gain); }

    /// True if no further sample would move the gain, which is then `gain`.
    bool rests(double gainTarget) const
    {
        FaderSmoother next = *this;
        next.process(gainTarget);
        return next.gainStage_ == gainStage_;
    }
    double gain() const { return gainStage_.back(); }

    /// One sample towards `gainTarget`. @return the smoothed gain for this sample.
    double process(double gainTarget)
    {
        double in = gainTarget;
        for (double& s : gainStage_) {
            s = flush((in - s) * gainCoefficient_ + s, kFlush);
            in = s;
        }
        return in;
    }

private:
    static constexpr double kFlush = 1e-14;

    std::array<double, 3> gainStage_{1.0, 1.0, 1.0};
    double gainCoefficient_ = 0.001;
};

} // namespace velmora
