#pragma once

#include "dsp/lanes.h"
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
    void setMix(double value);
    void setMakeup(double value);   ///< 0..20 dB
    void setHighPass(double value); ///< 10 Hz..1 kHz

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

    /// Works out the coefficients and targets whose values were written since the last time, those of the
    /// detectors for the variant alone.
    void updateCoefficients(double sampleRate);
    void coefficientsAreStale() { stale = kEverything; }
    /// Lands the controls and brings filter, detectors and meter to rest.
    void resetCompressor(double sampleRate);
    void resetDetectors();
    void resetGain() { gain = 1.0; }

    template <typename V>
    static VELMORA_KERNEL V detect(OptoDetector& detector, const V& d, const CompressorControls&,
                                   const ControlValues<V>& to, std::size_t count, const BlockCoefficients& c)
    {
        return detector.process<V>(d, to.threshold, to.optoRatio, count, c.opto);
    }
    // The loop takes the threshold unsmoothed.
    template <typename V>
    static VELMORA_KERNEL V detect(FetDetector& detector, const V& d, const CompressorControls& controls,
                                   const ControlValues<V>& to, std::size_t count, const BlockCoefficients& c)
    {
        return detector.process<V>(d, controls.threshold.target, to.fetRatio, count, c.fet);
    }
    template <typename V>
    static VELMORA_KERNEL V detect(VcaDetector& detector, const V& d, const CompressorControls&,
                                   const ControlValues<V>& to, std::size_t count, const BlockCoefficients& c)
    {
        return detector.process<V>(d, to.threshold, count, c.vca);
    }

    std::int32_t variant = Opto;
    std::int32_t runFlag = 1;
    MeterCell gain{1.0}; ///< of the last sample, linear
    CompressorControls controls;
    BlockCoefficients coefficients;
    std::array<KeyChannel, 2> channels;

private:
    /// What has to be worked out anew: a mark for each variant's detector, then those that all share.
    static constexpr unsigned detectorMark(std::int32_t ofVariant) { return 1U << ofVariant; }
    static constexpr unsigned kDetectors = 1U << Opto | 1U << Fet | 1U << Vca;
    static constexpr unsigned kThreshold = 16;
    static constexpr unsigned kRatio = 32;
    static constexpr unsigned kMakeup = 64;
    static constexpr unsigned kHighPass = 128;
    static constexpr unsigned kRate = 256;
    static constexpr unsigned kShared = kThreshold | kRatio | kMakeup | kHighPass | kRate;
    static constexpr unsigned kEverything = kDetectors | kShared;

    void setValue(double& field, double value, unsigned marks);
    bool takeStale(unsigned marks);
    void updateDetector(double sampleRate);

    double attackValue = 0.5;
    double releaseValue = 0.5;
    double thresholdValue = 0.5;
    double ratioValue = 0.5;
    double makeupValue = 0.0;
    double hpfValue = 0.0;
    unsigned stale = kEverything;
};

} // namespace velmora
