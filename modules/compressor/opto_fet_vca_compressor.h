#pragma once

#include "dsp/meter_cell.h"
#include "modules/compressor/compressor_controls.h"
#include "modules/compressor/fet_detector.h"
#include "modules/compressor/key_high_pass.h"
#include "modules/compressor/opto_detector.h"
#include "modules/compressor/vca_detector.h"

#include <array>
#include <cstdint>

namespace velmora {

/// The three compressors behind one set of controls: what leads from the key to the gain.
///
/// Values are normalised, 0..1. A detector keeps its envelopes while another variant runs.
class OptoFetVcaCompressor {
public:
    enum Variant : std::int32_t { Opto = 1, Fet, Vca };

    void setVariant(std::int32_t typeIndex); ///< clamped to Opto..Vca
    void setAttack(double value);            ///< 0.1..100 ms on the display
    void setRelease(double value);           ///< 25..2500 ms on the display
    void setThreshold(double value);         ///< -40..+10 dB on the display
    void setRatio(double value);             ///< 1 is infinite
    void setHighPass(double value);          ///< 10 Hz..1 kHz

    /// Gain reduction of the last sample, 0..1; 0 is none. For any thread.
    double gainReduction() const;

protected:
    /// Everything that stays put within a block.
    struct BlockCoefficients {
        OptoCoefficients opto;
        FetCoefficients fet;
        VcaCoefficients vca;
        double s = 0.0; ///< glide of the controls
        double hpCoefficient = 0.0;
    };

    /// One channel's way from key to gain.
    struct KeyChannel {
        KeyHighPass highPass;
        OptoDetector opto;
        FetDetector fet;
        VcaDetector vca;
    };

    OptoFetVcaCompressor();

    /// Works out coefficients and ratio targets, if a value or the rate was written since the last time.
    void updateCoefficients(double sampleRate);
    void coefficientsAreStale() { stale = true; }
    /// Lands the controls and brings filter, detectors and meter to rest.
    void resetCompressor(double sampleRate);
    void resetDetectors();
    void resetGain() { gain = 1.0; }

    static double detect(OptoDetector& detector, double d, const CompressorControls& to,
                         const BlockCoefficients& c)
    {
        return detector.process(d, to.thresholdScaleCurrent, to.optoRatio, c.opto);
    }
    // The loop takes the threshold unsmoothed.
    static double detect(FetDetector& detector, double d, const CompressorControls& to,
                         const BlockCoefficients& c)
    {
        return detector.process(d, to.thresholdScale, to.fetRatio, c.fet);
    }
    static double detect(VcaDetector& detector, double d, const CompressorControls& to,
                         const BlockCoefficients& c)
    {
        return detector.process(d, to.thresholdScaleCurrent, c.vca);
    }

    std::int32_t variant = Opto;
    std::int32_t runFlag = 1;
    MeterCell gain{1.0}; ///< of the last sample, linear
    CompressorControls controls;
    BlockCoefficients coefficients;
    std::array<KeyChannel, 2> channels;

private:
    void setValue(double& field, double value);

    double attackValue = 0.5;
    double releaseValue = 0.5;
    double ratioValue = 0.5;
    double hpfValue = 0.0;
    bool stale = true;
};

} // namespace velmora
