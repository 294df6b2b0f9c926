#include "modules/output/strip_effect_output.h"

#include "dsp/flush.h"
#include "params/laws/output_laws.h"

#include <algorithm>
#include <cmath>

namespace velmora {

namespace {

constexpr std::int32_t kOutputCode = (static_cast<std::int32_t>(ModuleKind::Output) - 1) * 16 + 1;

// Own parameters, and the offsets that clear the clip indicators when written.
enum Offset : ParameterId { Width = kOwnOffset, Balance, Gain, MeasurementPoint };
constexpr ParameterId kClearClip = 4;
constexpr ParameterId kClearClipLeft = 6;
constexpr ParameterId kClearClipRight = 7;

// Offsets in the meter window, behind the two level meters.
enum Meter : std::uint32_t { PeakL = 2, PeakR, RmsL, RmsR, ClipL, ClipR };

// Smoothing steps at 44100 Hz are the single-precision 0.00005 and 0.001.
constexpr double kPanStepHz = 2.2049999442970147;
constexpr double kGainStepHz = 44.1000020946376;

constexpr double kFlush = 1e-14;

void glide(double& current, double target, double coefficient)
{
    current = flush((target - current) * coefficient + current, kFlush);
}

} // namespace

StripEffectOutput::StripEffectOutput(std::uint32_t windowBaseId, std::uint32_t meterBaseId,
                                     std::uint32_t localBaseId)
    : StripEffect(windowBaseId, meterBaseId, localBaseId)
{
    StripEffectOutput::reset();
}

void StripEffectOutput::reset()
{
    resetMeterState();
    setMeterRate(sampleRate);
    resetMeanSquare(sampleRate);
    updateCoefficients();
    widthCurrent = widthTarget;
    balanceLeftCurrent = balanceLeftTarget;
    balanceRightCurrent = balanceRightTarget;
    fader.reset(gainTarget);
}

void StripEffectOutput::setSampleRate(double hz)
{
    sampleRate = std::clamp(hz, kMinSampleRate, kMaxSampleRate);
    setMeterRate(sampleRate);
    updateCoefficients();
}

void StripEffectOutput::updateCoefficients()
{
    panCoefficient = kPanStepHz / sampleRate;
    fader.setCoefficient(kGainStepHz / sampleRate);
}

void StripEffectOutput::setParameter(std::uint32_t id, double value)
{
    if (id == meterBase + ClipL || id == meterBase + ClipR)
        clearClip();
    else
        setWindowParameter(relative(id), value);
}

void StripEffectOutput::setWindowParameter(ParameterId offset, double value)
{
    switch (offset) {
    case kTypeOffset:
        type = decodeType(value);
        break;
    case kClearClip:
    case kClearClipLeft:
    case kClearClipRight:
        clearClip();
        break;
    case Width:
        widthPercent = output::widthPercent(value);
        widthTarget = widthPercent * 0.01;
        break;
    case Balance:
        balanceLeftTarget = output::balanceLeft(value);
        balanceRightTarget = output::balanceRight(value);
        break;
    case Gain:
        gainTarget = output::faderGain(value);
        break;
    case MeasurementPoint:
        measurementPoint = decodeStep(value, 3.0);
        break;
    default:
        break;
    }
}

void StripEffectOutput::loadDefaults()
{
    writeDefaults(kOutputCode);
}

void StripEffectOutput::processMono(const AudioRecord& in, const AudioRecord& out, std::int32_t frames)
{
    if (passesThrough()) {
        processThrough(in, out, frames);
        return;
    }
    if (frames <= 0) return;
    markBlockStart();
    const double* input = in.left(0);
    double* result = out.right(0); // the left one may be the input
    if (!measuresAfterFader()) measure(Left, input, frames);
    std::copy_n(input, frames, result);
    applyFader(result, frames);
    meterBlocks(input, result, frames);
    std::copy_n(result, frames, out.left(0));
    if (measuresAfterFader()) measure(Left, result, frames);
    mirrorLeft();
}

void StripEffectOutput::applyFader(double* block, std::int32_t frames)
{
    if (fader.rests(gainTarget)) {
        const double gain = fader.gain();
        for (std::int32_t i = 0; i < frames; ++i) block[i] *= gain;
        return;
    }
    FaderSmoother gain = fader; // a local stays in registers
    for (std::int32_t i = 0; i < frames; ++i) block[i] *= gain.process(gainTarget);
    fader = gain;
}

void StripEffectOutput::processStereo(const AudioRecord& in, const AudioRecord& out, std::int32_t frames)
{
    if (passesThrough()) {
        processThrough(in, out, frames);
        return;
    }
    markBlockStart();
    const double* left = in.left(0);
    const double* right = in.right(0);
    const bool afterFader = measuresAfterFader();
    for (std::int32_t i = 0; i < frames; ++i) {
        const double a = left[i];
        const double b = right[i];
        meterInStereo(a, b);
        const StereoFrame mixed = mixStereo(a, b);
        measure(Left, afterFader ? &mixed.left : &a, 1);
        measure(Right, afterFader ? &mixed.right : &b, 1);
        meterOutStereo(mixed.left, mixed.right);
        for (int pair = 0; pair < AudioRecord::kPairs; ++pair) {
            if ((outputMask >> pair & 1) == 0) continue;
            out.left(pair)[i] = mixed.left;
            out.right(pair)[i] = mixed.right;
        }
    }
}

// Width as a gain on the side signal, then balance and fader.
StripEffectOutput::StereoFrame StripEffectOutput::mixStereo(double a, double b)
{
    glide(widthCurrent, widthTarget, panCoefficient);
    glide(balanceLeftCurrent, balanceLeftTarget, panCoefficient);
    glide(balanceRightCurrent, balanceRightTarget, panCoefficient);
    const double gain = fader.process(gainTarget);
    const double side = (a - b) * widthCurrent;
    const double mid = a + b;
    return {(side + mid) * 0.5 * balanceLeftCurrent * gain, (mid - side) * 0.5 * balanceRightCurrent * gain};
}

void StripEffectOutput::getMeter(std::uint32_t id, double* out)
{
    if (answerLevelMeters(id, out)) return;
    switch (id - meterBase) {
    case PeakL:
        *out = peakReading(Left);
        break;
    case PeakR:
        *out = peakReading(Right);
        break;
    case RmsL:
        *out = rmsReading(Left);
        break;
    case RmsR:
        *out = rmsReading(Right);
        break;
    case ClipL:
        *out = readClipIndicator(Left);
        break;
    case ClipR:
        *out = readClipIndicator(Right);
        break;
    default:
        break;
    }
}

void StripEffectOutput::resetMeters()
{
    resetMeterState();
    clearReadings();
}

void StripEffectOutput::activate()
{
    runFlag = 1;
    reset();
}

void StripEffectOutput::deactivate()
{
    runFlag = 0;
    reset();
}

} // namespace velmora
