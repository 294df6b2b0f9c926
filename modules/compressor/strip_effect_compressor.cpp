#include "modules/compressor/strip_effect_compressor.h"

#include "dsp/flush.h"
#include "params/laws/compressor_laws.h"

#include <algorithm>
#include <cmath>

namespace velmora {

namespace {

constexpr std::int32_t kCompressorCode = (static_cast<std::int32_t>(ModuleKind::Compressor) - 1) * 16 + 1;

// Own parameters. The one behind them, Link, has no effect: the channels' detectors never meet.
enum Offset : ParameterId { Attack = kOwnOffset, Release, Threshold, Ratio, Mix, Makeup, HighPass };

constexpr std::uint32_t kGainReductionMeter = 2;

double orSilence(double x)
{
    return std::isnan(x) ? 0.0 : x;
}

// Make-up gain and parallel mix of one sample.
double blend(double x, double gain, const CompressorControls& controls)
{
    constexpr double kFlush = 1e-16;
    const double wet = gain * x * controls.makeupGainCurrent;
    return flush(wet, kFlush) * controls.mixCurrent + (1.0 - controls.mixCurrent) * x;
}

} // namespace

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
        controls.mix = std::clamp(value, 0.0, 1.0);
        break;
    case Makeup:
        controls.makeupGain = std::pow(10.0, compressor::makeupDb(std::clamp(value, 0.0, 1.0)) * 0.05);
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

template <typename Detector>
void StripEffectCompressor::runMono(Detector KeyChannel::*detector, const AudioRecord& in,
                                    const AudioRecord& out, std::int32_t frames)
{
    const double* input = in.left(0);
    const double* key = in.left(keyPair());
    const BlockCoefficients c = coefficients;
    CompressorControls to = controls;
    KeyHighPass highPass = channels[0].highPass;
    Detector follower = channels[0].*detector;
    double g = gain;
    for (std::int32_t i = 0; i < frames; ++i) {
        to.advance(c.s);
        const double x = orSilence(input[i]);
        meterInMono(x);
        const double d = highPass.process(orSilence(key[i]), c.hpCoefficient);
        g = detect(follower, d, to, c);
        const double y = blend(x, g, to);
        meterOutMono(y);
        writeMono(out, i, monitor != 0 ? d : y);
    }
    controls = to;
    channels[0].highPass = highPass;
    channels[0].*detector = follower;
    gain = g;
}

template <typename Detector>
void StripEffectCompressor::runStereo(Detector KeyChannel::*detector, const AudioRecord& in,
                                      const AudioRecord& out, std::int32_t frames)
{
    const BlockCoefficients& c = coefficients;
    const int pair = keyPair();
    for (std::int32_t i = 0; i < frames; ++i) {
        controls.advance(c.s);
        const double l = orSilence(in.left(0)[i]);
        const double r = orSilence(in.right(0)[i]);
        meterInStereo(l, r);
        const double keyL = channels[0].highPass.process(orSilence(in.left(pair)[i]), c.hpCoefficient);
        const double keyR = channels[1].highPass.process(orSilence(in.right(pair)[i]), c.hpCoefficient);
        const double gainL = detect(channels[0].*detector, keyL, controls, c);
        const double gainR = detect(channels[1].*detector, keyR, controls, c);
        gain = std::min(gainL, gainR);
        const double outL = blend(l, gainL, controls);
        const double outR = blend(r, gainR, controls);
        meterOutStereo(outL, outR);
        if ((outputMask & 1) == 0) continue;
        out.left(0)[i] = monitor != 0 ? keyL : outL;
        out.right(0)[i] = monitor != 0 ? keyR : outR;
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
