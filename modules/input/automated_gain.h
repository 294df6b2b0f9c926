#pragma once

#include "dsp/meter_cell.h"
#include "dsp/strip_biquad.h"
#include "modules/input/rails.h"

#include <array>

namespace velmora::preamp {

/// Automated gain adjustment: learns the loudest level since it was last cleared and brings it to a reference
/// level. It never raises the gain again while the level falls, since its maxima don't decay.
class AutomatedGain {
public:
    /// Lands the gain on its target and clears the detector filters; the learned maxima stay.
    void reset(double sampleRate);

    void setReference(double linear) { agaReference = linear; }
    /// @param rms true for RMS detection, false for peak.
    void setDetectRms(bool rms) { agaDetectRms = rms; }
    /// @param upDown true: gain goes both ways; false: down only.
    void setUpDown(bool upDown) { agaUpDown = upDown; }
    void clearMaxima();
    /// Starts over from a linear gain, as if the loudest level so far had asked for it.
    void seed(double gain);

    /// One piece in place. @param stereo both rails are detected, else the left one alone; both get the same
    /// gain.
    void process(RailBlocks& blocks, int count, bool stereo);

    double target() const { return agaTarget; } ///< linear; any thread may ask
    double gain() const { return agaGain; }     ///< linear

private:
    /// Level of each sample of a piece.
    struct Levels {
        RailBlock meanSquare;
        RailBlock peak;
    };

    Levels detect(const RailBlocks& blocks, int count, bool stereo);
    void learn(double meanSquare, double peak);
    double aimed(double now) const;
    double moved(double gain, double target) const;

    bool agaDetectRms = true;
    bool agaUpDown = false;
    MeterCell agaTarget{1.0};
    double agaGain = 1.0;
    double agaReference = 0.25;
    double agaLevelMax = 0.0;
    double agaMaxMeanSquare = 0.0;
    double agaMaxPeak = 0.0;
    double rmsLevel = 0.0; // of the present maximum of the mean square
    double glide = 0.0;    // share per sample
    std::array<StripBiquad, kRails> rmsFilter{StripBiquad(StripBiquadKind::LowPass, 1.6666666666666667, 0.5),
                                              StripBiquad(StripBiquadKind::LowPass, 1.6666666666666667, 0.5)};
};

} // namespace velmora::preamp
