#pragma once

#include "modules/input/auto_mute.h"
#include "modules/input/biased_stage.h"
#include "modules/input/component_spread.h"
#include "modules/input/decade_design.h"
#include "modules/input/noise_generator.h"
#include "modules/input/noise_shaper.h"
#include "modules/input/rail_section.h"
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
///
/// The rails are the two lanes of a vector, and the circuits of a chain run in step, so that a sample costs
/// about as much as the slowest circuit of one rail.
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

    /// One piece in place. @param count up to 64.
    void run(RailBlocks& blocks, int count);

    double saturationLevel() const { return saturation_.level(); }
    void clearSaturation() { saturation_.clear(); }
    std::int32_t instanceIndex() const { return instanceIndex_; }

private:
    using CrosstalkSection = RailSection<Healing::OutputAndHistory>;

    bool analog() const { return emulation_ != kAdc90s; }
    const DecadeDesign& decade() const { return designs_[static_cast<unsigned>(lastAnalog_ - kPre60s)]; }
    void applyEmulation();
    void landSections();
    void moveSmoothers();

    VELMORA_KERNEL void takeInput(const RailBlocks& blocks, int count);
    void setNoiseGains(int count);
    template <typename... Next>
    VELMORA_KERNEL void runNoise(int count, Next... next);
    template <typename... Next>
    VELMORA_KERNEL void shapeNoise(int count, Next... next);
    template <typename V>
    VELMORA_KERNEL void runStage1(int count);
    template <typename V>
    VELMORA_KERNEL void runBiasedStage(int count);
    template <typename V>
    VELMORA_KERNEL void scaleSignal(int count, double gain);
    VELMORA_KERNEL void runStage2(int count);
    VELMORA_KERNEL static Rails crossed(const Rails& x, CrosstalkSection& section, double amount);
    VELMORA_KERNEL void runToTubes(int count);
    VELMORA_KERNEL void runTransistors(int count);
    VELMORA_KERNEL void writeOutput(RailBlocks& blocks, int count);

    std::int32_t instanceIndex_;
    ComponentSpread spread_;
    std::array<NoiseGenerator, kRails> generators_;
    NoiseShaper noiseShaper_;
    AutoMute autoMute_;
    BiasedStage stage1_;
    TubeShaper tubes_;
    TransistorStage transistors_;
    RailSection<Healing::None> transformer_; // the transistors give nothing but finite values
    VintageConverter converter_;
    SaturationMeter saturation_;
    RailSection<> bandwidth_;
    CrosstalkSection crosstalk_;
    RailSection<> bump_;

    double sampleRate_ = 44100.0;
    double blockCoefficient_ = 0.0; // 200 ms at one step per piece
    std::int32_t emulation_ = kPre70s;
    std::int32_t lastAnalog_ = kPre70s;
    std::array<DecadeDesign, 3> designs_; // of this unit at this rate
    double noiseScale_ = 1.0;
    double noiseFilterCoefficient_ = 0.0;

    NoiseMode noiseMode_ = NoiseMode::Off;
    double noiseLevelTarget_;
    double noiseLevelCurrent_;
    double driveTarget_ = 1.0;
    double driveCurrent_ = 1.0;
    double compensation_ = 1.0;     // level that the drive adds, taken back
    double compensatedDrive_ = 1.0; // the drive it was worked out for

    RailPiece signal_;
    RailPiece noise_;
    RailPiece bias_;
    RailBlock noiseGains_{};
};

} // namespace velmora::preamp
