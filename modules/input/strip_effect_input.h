#pragma once

#include "engine/strip_effect.h"
#include "modules/input/automated_gain.h"
#include "modules/input/console_emulation.h"
#include "modules/input/level_follower.h"
#include "modules/input/polarity_ramp.h"
#include "modules/input/rails.h"

#include <array>

namespace velmora {

/// The preamp: polarity, input gain or automated gain, and the console emulation of four decades behind it.
/// Types: 1 "Gain", 2 "Pre 60s", 3 "Pre 70s", 4 "Pre 80s", 5 "ADC 90s"; 0 passes through.
class StripEffectInput : public StripEffect {
public:
    StripEffectInput(std::uint32_t windowBaseId, std::uint32_t meterBaseId, std::uint32_t localBaseId);

    void reset() override;
    void setSampleRate(double hz) override;
    void setParameter(std::uint32_t id, double value) override;
    void loadDefaults() override;
    /// Each channel has its own polarity; the automated gain is common to both.
    void processStereo(const AudioRecord& in, const AudioRecord& out, std::int32_t frames) override;
    void processMono(const AudioRecord& in, const AudioRecord& out, std::int32_t frames) override;
    /// Meter offsets: 0 input, 1 output, 2 level behind the gain, 3 automatic gain on the scale of the gain
    /// parameter, 4 saturation.
    void getMeter(std::uint32_t id, double* out) override;
    void resetMeters() override;
    void activate() override { runFlag = 1; }
    void deactivate() override { runFlag = 0; }

    /// Which of the 16 sets of component values and noise this unit has, 0..15.
    std::int32_t instanceIndex() const { return emulation.instanceIndex(); }

private:
    enum class Channels { Mono, Stereo };
    using Sides = std::array<const double*, preamp::kRails>;

    void setType(double value);
    void setGain(double value);
    void setAutoIn(double value);
    void setOwnParameter(ParameterId offset, double value);
    void resetGain();

    void process(const AudioRecord& in, const AudioRecord& out, std::int32_t frames, Channels channels);
    void takeInput(const Sides& source, int count, Channels channels);
    void automateGain(int count, Channels channels);
    void applyGain(const Sides& source, int count, Channels channels);
    void glideGain(int count);
    void followGain(int count, Channels channels);
    void writeOutput(const AudioRecord& out, std::int32_t start, int count);
    void meter(const Sides& before, const Sides& behind, int count, Channels channels);
    static Sides sidesOf(const preamp::RailBlocks& blocks) { return {blocks[0].data(), blocks[1].data()}; }

    preamp::RailBlocks rails{}; // the piece at work
    preamp::RailBlocks beforeGain{};
    double gainCoefficient = 0.0;
    preamp::AutomatedGain aga;
    bool agaEnabled = false;
    std::int32_t runFlag = 1;
    double gainTarget = 1.0;
    double gainCurrent = 1.0;
    preamp::LevelFollower postGain;
    bool analogOn = true;
    std::array<preamp::PolarityRamp, preamp::kRails> polarity;
    preamp::ConsoleEmulation emulation;
};

} // namespace velmora
