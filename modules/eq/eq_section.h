#pragma once

#include "dsp/strip_biquad.h"
#include "modules/eq/eq_band.h"
#include "modules/eq/softening.h"

namespace velmora {

/// A second-order section with a softening of its output. The softening stands behind the recursion, whose
/// history keeps the clean output.
class EqSection {
public:
    EqSection();

    void setDesign(const EqSectionSettings& settings);
    void setSampleRate(double hz); ///< clamped to 44100 .. 384000 Hz; redesigns
    void setEnabled(bool enabled) { biquad_.setEnabled(enabled); }

    /// Share of the depth that acts, 0..1; taken with the next switch of the softening.
    void setDepthShare(double share) { depthShare_ = share; }
    /// Switches the softening and takes its depth from frequency and Q of this moment; later moves of the
    /// band leave the depth alone.
    void setAnalog(bool on);

    void reset();

    /// One sample.
    double process(double x)
    {
        const double y = biquad_.runSample(x);
        return analog_ ? softening_.process(y) : y;
    }

    double analogDepth() const { return analogDepth_; }
    StripBiquad& biquad() { return biquad_; }
    /// Acts while the softening is on only.
    Softening<double>& softening() { return softening_; }

private:
    static constexpr double kIdleDepth = 0.0001;

    void updateTrackRates();
    void updateLowTrackRate();

    StripBiquad biquad_{StripBiquadKind::Peaking};
    bool analog_ = false;
    double analogDepth_ = kIdleDepth;
    double depthShare_ = 1.0;
    Softening<double> softening_;
};

} // namespace velmora
