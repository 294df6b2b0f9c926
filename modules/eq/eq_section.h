#pragma once

#include "dsp/flush.h"
#include "dsp/strip_biquad.h"
#include "modules/eq/eq_band.h"

#include <cmath>

namespace velmora {

/// A second-order section whose output gives way to loud material of its own band, as a coil near saturation
/// does. The softening stands behind the recursion, whose history keeps the clean output.
class EqSection {
public:
    void setDesign(const EqSectionSettings& settings);
    void setSampleRate(double hz); ///< clamped to 44100 .. 384000 Hz; redesigns
    void setEnabled(bool enabled) { biquad_.setEnabled(enabled); }

    /// Switches the softening and takes its depth from frequency and Q of this moment; later moves of the
    /// band leave the depth alone.
    void setAnalog(bool on);

    void reset();

    /// One sample. @param depthShare share of the section's depth that acts, 0..1.
    double process(double x, double depthShare)
    {
        const double y = biquad_.runSample(x);
        return analog_ ? soften(y, analogDepth_ * depthShare) : y;
    }

    double analogDepth() const { return analogDepth_; }
    const StripBiquad& biquad() const { return biquad_; }

private:
    static constexpr double kFlush = 1e-30;
    static constexpr double kIdleDepth = 0.0001;
    static constexpr double kSoftShare = 0.125; // of the output; the rest stays clean
    static constexpr double kCleanShare = 0.875;

    double soften(double y, double depth)
    {
        lowTrack_ = flush(lowTrack_ + (y - lowTrack_) * lowTrackRate_, kFlush);
        bandTrack_ = flush(bandTrack_ + ((y - lowTrack_) - bandTrack_) * bandTrackRate_, kFlush);
        const double divisor = 1.0 + std::fabs(bandTrack_) * depth;
        return y / divisor * kSoftShare + y * kCleanShare;
    }

    void updateTrackRates();

    StripBiquad biquad_{StripBiquadKind::Peaking};
    bool analog_ = false;
    double analogDepth_ = kIdleDepth;
    double lowTrack_ = 0.0; // one-pole low-pass of the output
    double lowTrackRate_ = 0.0;
    double bandTrack_ = 0.0; // low-passed rest above it
    double bandTrackRate_ = 0.0;
};

} // namespace velmora
