#include "modules/compressor/strip_effect_compressor.h"

#include "dsp/lanes.h"
#include "dsp/run_widest.h"
#include "params/laws/compressor_laws.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace velmora {

namespace {

constexpr std::int32_t kCompressorCode = (static_cast<std::int32_t>(ModuleKind::Compressor) - 1) * 16 + 1;

// Own parameters. The one behind them, Link, has no effect: the channels' detectors never meet.
enum Offset : ParameterId { Attack = kOwnOffset, Release, Threshold, Ratio, Mix, Makeup, HighPass };

constexpr std::uint32_t kGainReductionMeter = 2;

// Make-up gain and parallel mix.
template <typename V>
VELMORA_KERNEL V blend(const V& x, const V& gain, const ControlValues<V>& controls)
{
    constexpr double kFlush = 1e-16;
    const V wet = flushLanes<V>(gain * x * controls.makeup, kFlush);
    return wet * controls.mix + (1.0 - controls.mix) * x;
}

constexpr std::int32_t kBlockLength = 64; // of the engine's sub-blocks
constexpr std::size_t kMostLanes = 8;

} // namespace

/// Work space of one channel; behind the last sample a group of lanes is filled up with silence.
struct CompressorBlock {
    using Samples = std::array<double, kBlockLength>;

    alignas(64) Samples input;
    alignas(64) Samples key; ///< behind the detector the filtered key
    alignas(64) Samples output;

    /// No number counts as silence.
    void load(const double* from, const double* keyFrom, std::size_t frames)
    {
        for (std::size_t i = 0; i < frames; ++i) {
            input[i] = std::isnan(from[i]) ? 0.0 : from[i];
            key[i] = std::isnan(keyFrom[i]) ? 0.0 : keyFrom[i];
        }
        for (std::size_t i = frames; i % kMostLanes != 0; ++i) input[i] = key[i] = 0.0;
    }
    /// Writes what is to be heard. @param monitor the key in place of the output
    void store(double* to, bool monitor, std::size_t frames) const
    {
        std::copy_n((monitor ? key : output).data(), frames, to);
    }
};

StripEffectCompressor::StripEffectCompressor(std::uint32_t windowBaseId, std::uint32_t meterBaseId,
                                             std::uint32_t localBaseId)
    : StripEffect(windowBaseId, meterBaseId, localBaseId)
{
    StripEffectCompressor::reset();
}

void StripEffectCompressor::reset()
{
    resetMeterState();
    resetCompressor(sampleRate);
}

void StripEffectCompressor::setSampleRate(double hz)
{
    sampleRate = std::clamp(hz, kMinSampleRate, kMaxSampleRate);
    coefficientsAreStale();
    resetMeterState();
}

void StripEffectCompressor::setType(double value)
{
    type = decodeType(value);
    setVariant(type);
    if (type == 0) resetGain(); // nothing would move the meter any more
}

void StripEffectCompressor::setParameter(std::uint32_t id, double value)
{
    switch (relative(id)) {
    case kTypeOffset:
        setType(value);
        break;
    case kSideChainOffset:
        sideChainSource = decodeStep(value);
        break;
    case kMonitorOffset:
        monitor = decodeStep(value);
        break;
    case Attack:
        setAttack(value);
        break;
    case Release:
        setRelease(value);
        break;
    case Threshold:
        setThreshold(value);
        break;
    case Ratio:
        setRatio(value);
        break;
    case Mix:
        setMix(value);
        break;
    case Makeup:
        setMakeup(value);
        break;
    case HighPass:
        setHighPass(value);
        break;
    default:
        break;
    }
}

void StripEffectCompressor::loadDefaults()
{
    writeDefaults(kCompressorCode);
}

void StripEffectCompressor::prepareBlock()
{
    inputPair = 0;
    outputMask = 1;
    updateCoefficients(sampleRate);
}

// The block in groups of lanes: what has a memory goes through a group sample by sample, the rest of the way
// from key to gain takes its samples side by side. Groups overlap, as no loop of one waits for the rest of
// another. Leaves the filtered key in the block, and returns the last gain.
template <typename Detector>
double StripEffectCompressor::runChannel(KeyChannel& channel, Detector KeyChannel::*detector,
                                         CompressorControls& to, CompressorBlock& block,
                                         std::size_t frames) const
{
    double last = 1.0;
    runWidest([&](auto width) VELMORA_KERNEL_LAMBDA {
        using V = Lanes<width>;
        const BlockCoefficients c = coefficients; // what the loops touch stays in registers
        KeyHighPass highPass = channel.highPass;
        Detector follower = channel.*detector;
        CompressorControls controlsOf = to;
        V gains{};
        controlsOf.begin(c.s);
        const auto group = [&](std::size_t at, std::size_t count) VELMORA_KERNEL_LAMBDA {
            const V x = loadLanes<V>(&block.input[at]);
            const ControlValues<V> values = controlsOf.advance<V>(c.s, count);
            const V d = highPass.process<V>(loadLanes<V>(&block.key[at]), count, c.hpCoefficient);
            gains = detect<V>(follower, d, controlsOf, values, count, c);
            storeLanes<V>(&block.key[at], d);
            storeLanes<V>(&block.output[at], blend<V>(x, gains, values));
        };
        const std::size_t rest = frames % width;
        for (std::size_t at = 0; at + rest < frames; at += width) group(at, width);
        if (rest != 0) group(frames - rest, rest);
        last = gains[(frames - 1) % width];
        to = controlsOf;
        channel.highPass = highPass;
        channel.*detector = follower;
    });
    return last;
}

template <typename Detector>
void StripEffectCompressor::runMono(Detector KeyChannel::*detector, const AudioRecord& in,
                                    const AudioRecord& out, std::int32_t frames)
{
    CompressorBlock block;
    for (std::int32_t at = 0; at < frames; at += kBlockLength) {
        const std::int32_t length = std::min(frames - at, kBlockLength);
        const auto count = static_cast<std::size_t>(length);
        block.load(in.left(0) + at, in.left(keyPair()) + at, count);
        gain = runChannel(channels[0], detector, controls, block, count);
        meterBlocks(block.input.data(), block.output.data(), length);
        if ((outputMask & 1) == 0) continue;
        block.store(out.left(0) + at, monitor != 0, count);
        block.store(out.right(0) + at, monitor != 0, count);
    }
}

template <typename Detector>
void StripEffectCompressor::runStereo(Detector KeyChannel::*detector, const AudioRecord& in,
                                      const AudioRecord& out, std::int32_t frames)
{
    std::array<CompressorBlock, 2> blocks;
    const int pair = keyPair();
    for (std::int32_t at = 0; at < frames; at += kBlockLength) {
        const std::int32_t length = std::min(frames - at, kBlockLength);
        const auto count = static_cast<std::size_t>(length);
        blocks[0].load(in.left(0) + at, in.left(pair) + at, count);
        blocks[1].load(in.right(0) + at, in.right(pair) + at, count);
        meterInBlock(blocks[0].input.data(), blocks[1].input.data(), length);
        CompressorControls right = controls; // both channels glide alike
        const double gainL = runChannel(channels[0], detector, controls, blocks[0], count);
        const double gainR = runChannel(channels[1], detector, right, blocks[1], count);
        gain = std::min(gainL, gainR);
        meterOutBlock(blocks[0].output.data(), blocks[1].output.data(), length);
        if ((outputMask & 1) == 0) continue;
        blocks[0].store(out.left(0) + at, monitor != 0, count);
        blocks[1].store(out.right(0) + at, monitor != 0, count);
    }
}

void StripEffectCompressor::processMono(const AudioRecord& in, const AudioRecord& out, std::int32_t frames)
{
    if (passesThrough()) {
        processThrough(in, out, frames);
        return;
    }
    prepareBlock();
    if (variant == Opto)
        runMono(&KeyChannel::opto, in, out, frames);
    else if (variant == Fet)
        runMono(&KeyChannel::fet, in, out, frames);
    else
        runMono(&KeyChannel::vca, in, out, frames);
}

void StripEffectCompressor::processStereo(const AudioRecord& in, const AudioRecord& out, std::int32_t frames)
{
    if (passesThrough()) {
        processThrough(in, out, frames);
        return;
    }
    prepareBlock();
    if (variant == Opto)
        runStereo(&KeyChannel::opto, in, out, frames);
    else if (variant == Fet)
        runStereo(&KeyChannel::fet, in, out, frames);
    else
        runStereo(&KeyChannel::vca, in, out, frames);
}

void StripEffectCompressor::getMeter(std::uint32_t id, double* out)
{
    if (answerLevelMeters(id, out)) return;
    if (id == meterBase + kGainReductionMeter) *out = gainReduction();
}

void StripEffectCompressor::resetMeters()
{
    resetMeterState();
    resetGain();
}

void StripEffectCompressor::activate()
{
    active = 1;
    runFlag = 1;
    resetGain();
}

void StripEffectCompressor::deactivate()
{
    active = 0;
    runFlag = 0;
    resetDetectors();
    resetGain();
}

} // namespace velmora
