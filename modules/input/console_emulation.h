#pragma once

#include "dsp/strip_biquad.h"
#include "modules/input/auto_mute.h"
#include "modules/input/biased_stage.h"
#include "modules/input/component_spread.h"
#include "modules/input/console_noise.h"
#include "modules/input/dc_blocker.h"
#include "modules/input/decade_constants.h"
#include "modules/input/rails.h"
#include "modules/input/saturation_meter.h"
#include "modules/input/transistor_stage.h"
#include "modules/input/tube_shaper.h"
#include "modules/input/vintage_converter.h"

#include <array>
#include <cstdint>

namespace velmora::preamp {

enum class NoiseMode : std::int32_t { Off = 0, AutoMute = 1, On = 2 };

/// The analog stage of one preamp: noise, then the saturation chain of a decade or the converter of the 90s.
/// One unit of it has its own component values and its own noise, by its instance index.
class ConsoleEmulation {
public:
    /// @param instanceIndex 0..15
    explicit ConsoleEmulation(std::int32_t instanceIndex);

    /// @param hz 44100..384000. Sets up the tubes, then as `reset`.
    void setSampleRate(double hz);
    /// Returns to silence and lands the smoothers; tube envelopes and mute levels stay.
    void reset();
    /// Takes over a decade at once, its sections cleared; the 2 Hz high-pass and all envelopes run on.
    /// @param emulation kPre60s..kAdc90s; the converter keeps the noise and bandwidth values of the decade
    /// before it, and clears nothing.
    void select(std::int32_t emulation);

    void setDrive(double v);      ///< normalised
    void setNoiseLevel(double v); ///< normalised
    void setNoiseMode(NoiseMode mode) { noiseMode_ = mode; }

    /// One piece. @param count up to 64.
    void run(const RailBlocks& in, RailBlocks& out, int count);

    double saturationLevel() const { return saturation_.level(); }
    void clearSaturation() { saturation_.clear(); }
    std::int32_t instanceIndex() const { return instanceIndex_; }

private:
    /// Everything that one rail has of its own.
    struct Rail {
        Rail(GeneratorWords seed, const ComponentSpread& spread, unsigned rail)
            : noise(seed, spread.noiseTrim[rail]),
              stage1(spread.curveTrim[rail]),
              transistor(spread.biasTrim[rail])
        {
        }

        ConsoleNoise noise;
        BiasedStage stage1;
        TubeShaper tube;
        TransistorStage transistor;
        StripBiquad bandwidth{StripBiquadKind::OnePoleLowPass};
        StripBiquad crosstalk{StripBiquadKind::BandPass};
        StripBiquad bump{StripBiquadKind::Peaking};
    };

    bool analog() const { return emulation_ != kAdc90s; }
    void applyEmulation();
    void moveSmoothers();
    void makeNoise(int count);
    void addNoise(int count);
    void addMutedNoise(int count);
    void limitBandwidth(int count);
    void runStage1(int count);
    void scaleSignal(int count, double gain);
    void runCrosstalk(int count);
    void runTubes(int count);
    void runTransistors(int count);
    void runBump(int count);

    std::int32_t instanceIndex_;
    ComponentSpread spread_;
    std::array<Rail, kRails> rails_;
    AutoMute autoMute_;
    VintageConverter converter_;
    SaturationMeter saturation_;

    double sampleRate_ = 44100.0;
    double blockCoefficient_ = 0.0; // 200 ms at one step per piece
    std::int32_t emulation_ = kPre70s;
    const DecadeConstants* decade_ = &decadeConstants(kPre70s); // of the last analog decade
    BiasedStage::Coefficients biased_;
    TransistorStage::Coefficients transistor_;
    double noiseScale_ = 1.0;
    double noiseFilterCoefficient_ = 0.0;

    NoiseMode noiseMode_ = NoiseMode::Off;
    double noiseLevelTarget_;
    double noiseLevelCurrent_;
    double driveTarget_ = 1.0;
    double driveCurrent_ = 1.0;
    double compensation_ = 1.0;     // level that the drive adds, taken back
    double compensatedDrive_ = 1.0; // the drive it was worked out for

    RailBlocks signal_{};
    RailBlocks noise_{};
};

} // namespace velmora::preamp
