#include "modules/input/strip_effect_input.h"

#include "dsp/flush.h"
#include "params/laws/preamp_laws.h"

#include <algorithm>
#include <cmath>

namespace velmora {

namespace {

using preamp::kPiece;

constexpr std::int32_t kGainType = 1;
constexpr double kGainShare = 22.05; // of the way per second and Hz: 0.0005 per sample at 44100 Hz
constexpr double kGainFlush = 1e-14;

enum Offset : ParameterId {
    kGain = 16,
    kAutoIn,
    kRefLevel,
    kAutoDetectMode,
    kAutoLevelMode,
    kPhaseL,
    kPhaseR,
    kAnalog,
    kDrive,
    kNoiseIn,
    kNoiseLevel,
};

enum MeterOffset : std::uint32_t { kPostGainMeter = 2, kAutomaticGainMeter = 3, kSaturationMeter = 4 };

double linear(double db)
{
    return std::pow(10.0, db * 0.05);
}

} // namespace

StripEffectInput::StripEffectInput(std::uint32_t windowBaseId, std::uint32_t meterBaseId,
                                   std::uint32_t localBaseId)
    : StripEffect(windowBaseId, meterBaseId, localBaseId), emulation(preamp::nextInstanceIndex())
{
    StripEffectInput::setSampleRate(kMinSampleRate);
    StripEffectInput::reset();
}

void StripEffectInput::reset()
{
    for (preamp::PolarityRamp& ramp : polarity) ramp.land();
    resetMeterState();
    resetGain();
    emulation.reset();
}

void StripEffectInput::setSampleRate(double hz)
{
    sampleRate = std::clamp(hz, kMinSampleRate, kMaxSampleRate);
    resetMeterState();
    resetGain();
    postGain.setSampleRate(sampleRate);
    emulation.setSampleRate(sampleRate);
}

void StripEffectInput::resetGain()
{
    gainCurrent = gainTarget;
    gainCoefficient = kGainShare / sampleRate;
    postGain.reset();
    aga.reset(sampleRate);
}

void StripEffectInput::setParameter(std::uint32_t id, double value)
{
    const ParameterId offset = relative(id);
    if (offset == kTypeOffset)
        setType(value);
    else
        setOwnParameter(offset, value);
}

void StripEffectInput::setOwnParameter(ParameterId offset, double value)
{
    switch (offset) {
    case kGain:
        return setGain(value);
    case kAutoIn:
        return setAutoIn(value);
    case kRefLevel:
        return aga.setReference(linear(preamp::referenceDb(value)));
    case kAutoDetectMode:
        return aga.setDetectRms(decodeStep(value) >= 1);
    case kAutoLevelMode:
        return aga.setUpDown(decodeStep(value) != 0);
    case kPhaseL:
    case kPhaseR:
        return polarity[static_cast<unsigned>(offset - kPhaseL)].aim(decodeStep(value) == 1, sampleRate);
    case kAnalog:
        analogOn = decodeStep(value) != 0;
        return emulation.clearSaturation();
    case kDrive:
        return emulation.setDrive(value);
    case kNoiseIn:
        return emulation.setNoiseMode(static_cast<preamp::NoiseMode>(decodeStep(value, 2.0)));
    case kNoiseLevel:
        return emulation.setNoiseLevel(value);
    default:
        return;
    }
}

void StripEffectInput::setType(double value)
{
    type = decodeType(value);
    emulation.select(std::clamp(type, preamp::kPre60s, preamp::kAdc90s));
}

void StripEffectInput::setGain(double value)
{
    // The knob's decibels are single precision.
    gainTarget = linear(static_cast<float>(preamp::gainDb(value)));
    if (agaEnabled) aga.seed(gainTarget);
}

void StripEffectInput::setAutoIn(double value)
{
    agaEnabled = decodeStep(value) != 0;
    if (agaEnabled) aga.clearMaxima();
}

void StripEffectInput::loadDefaults()
{
    constexpr std::int32_t kCode = 1; // the values of all five types are alike
    writeDefaults(kCode);
}

void StripEffectInput::processStereo(const AudioRecord& in, const AudioRecord& out, std::int32_t frames)
{
    process(in, out, frames, Channels::Stereo);
}

void StripEffectInput::processMono(const AudioRecord& in, const AudioRecord& out, std::int32_t frames)
{
    process(in, out, frames, Channels::Mono);
}

void StripEffectInput::process(const AudioRecord& in, const AudioRecord& out, std::int32_t frames,
                               Channels channels)
{
    if (runFlag == 0 || type == 0) return processThrough(in, out, frames);
    inputPair = 0;
    outputMask = 1;
    for (std::int32_t start = 0; start < frames; start += kPiece) {
        const int count = std::min(frames - start, kPiece);
        const Sides source{in.left(0) + start, in.right(0) + start};
        takeInput(source, count, channels);
        const bool byHand = !agaEnabled;
        if (byHand)
            applyGain(source, count, channels);
        else
            automateGain(count, channels);
        followGain(count, channels);
        if (analogOn && type != kGainType) emulation.run(rails, count);
        meter(byHand ? sidesOf(beforeGain) : source, sidesOf(rails), count, channels);
        writeOutput(out, start, count);
    }
}

void StripEffectInput::takeInput(const Sides& source, int count, Channels channels)
{
    polarity[0].process(source[0], rails[0].data(), count);
    if (channels == Channels::Mono)
        std::copy_n(rails[0].data(), count, rails[1].data());
    else
        polarity[1].process(source[1], rails[1].data(), count);
}

void StripEffectInput::automateGain(int count, Channels channels)
{
    aga.process(rails, count, channels == Channels::Stereo);
    gainCurrent = aga.gain(); // switching the automatic off keeps what it found
    gainTarget = aga.target();
}

// The level meters run here too, so at twice the rate while the gain is set by hand.
void StripEffectInput::applyGain(const Sides& source, int count, Channels channels)
{
    for (std::size_t rail = 0; rail < beforeGain.size(); ++rail)
        std::copy_n(rails[rail].data(), count, beforeGain[rail].data());
    glideGain(count);
    meter(source, sidesOf(rails), count, channels);
}

void StripEffectInput::glideGain(int count)
{
    const auto moved = [&] {
        return flush((gainTarget - gainCurrent) * gainCoefficient + gainCurrent, kGainFlush);
    };
    std::size_t i = 0;
    for (const auto end = static_cast<std::size_t>(count); i < end; ++i) {
        const double next = moved();
        if (next == gainCurrent) break; // here it stays
        gainCurrent = next;
        for (preamp::RailBlock& rail : rails) rail[i] *= next;
    }
    for (preamp::RailBlock& rail : rails)
        for (std::size_t k = i; k < static_cast<std::size_t>(count); ++k) rail[k] *= gainCurrent;
}

void StripEffectInput::followGain(int count, Channels channels)
{
    if (channels == Channels::Mono) return postGain.follow(rails[0].data(), count);
    preamp::RailBlock higher;
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i)
        higher[i] = std::max(std::fabs(rails[0][i]), std::fabs(rails[1][i]));
    postGain.follow(higher.data(), count);
}

void StripEffectInput::writeOutput(const AudioRecord& out, std::int32_t start, int count)
{
    std::copy_n(rails[0].data(), count, out.left(0) + start);
    std::copy_n(rails[1].data(), count, out.right(0) + start);
}

void StripEffectInput::meter(const Sides& before, const Sides& behind, int count, Channels channels)
{
    if (channels == Channels::Mono) return meterBlocks(before[0], behind[0], count);
    meterInBlock(before[0], before[1], count);
    meterOutBlock(behind[0], behind[1], count);
}

void StripEffectInput::getMeter(std::uint32_t id, double* out)
{
    if (answerLevelMeters(id, out)) return;
    switch (id - meterBase) {
    case kPostGainMeter:
        *out = postGain.level();
        break;
    case kAutomaticGainMeter:
        *out = std::clamp((20.0 * std::log10(aga.target()) + 30.0) / 60.0, 0.0, 1.0);
        break;
    case kSaturationMeter:
        *out = emulation.saturationLevel();
        break;
    default:
        break;
    }
}

void StripEffectInput::resetMeters()
{
    resetMeterState();
    postGain.clearReading();
    emulation.clearSaturation();
}

} // namespace velmora
