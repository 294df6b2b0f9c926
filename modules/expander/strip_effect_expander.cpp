#include "modules/expander/strip_effect_expander.h"

#include "params/laws/dynamics_laws.h"

#include <algorithm>
#include <cmath>

namespace velmora {

namespace {

constexpr std::int32_t kDynamicsCode = (static_cast<std::int32_t>(ModuleKind::Dynamics) - 1) * 16 + 1;
constexpr std::uint32_t kReductionMeter = 2;
constexpr double kNoReduction = 1.0;

enum Offset : ParameterId {
    Attack = kOwnOffset,
    Release,
    Ratio,
    Hold,
    Threshold,
    Shape,
    Range,
    HighPassIn,
    HighPassFrequency,
    LowPassIn,
    LowPassFrequency,
};

constexpr double kLongestHold = 0.4; // seconds
constexpr double kLowestThreshold = 1e-3;

// The expander's smoothing leaves 1/20 of a step after a hundredth of a second.
constexpr double kSmoothingResidue = 0.05;
constexpr double kSmoothingHz = 100.0;

double clampUnit(double v)
{
    return std::clamp(v, 0.0, 1.0);
}

double thresholdOf(double value)
{
    return std::clamp(std::pow(10.0, dynamics::thresholdDb(value) * 0.05), kLowestThreshold, 1.0);
}

} // namespace

StripEffectExpander::StripEffectExpander(std::uint32_t windowBaseId, std::uint32_t meterBaseId,
                                         std::uint32_t localBaseId)
    : StripEffect(windowBaseId, meterBaseId, localBaseId), attackMs(dynamics::attackMs(0.5))
{
    StripEffectExpander::setSampleRate(kMinSampleRate);
    StripEffectExpander::reset();
}

void StripEffectExpander::reset()
{
    resetMeterState();
    updateSmoothing();
    for (GainState& gain : gains) gain.envelope = gain.smoothed = 0.0; // the hold goes on counting
    gainOut = 0.0;
    for (KeyFilter& filter : keyFilters) filter.reset();
}

void StripEffectExpander::setSampleRate(double hz)
{
    sampleRate = std::clamp(hz, kMinSampleRate, kMaxSampleRate);
    updateSmoothing();
    for (KeyFilter& filter : keyFilters) filter.setSampleRate(sampleRate);
    updateAttack();
    updateRelease();
}

void StripEffectExpander::updateSmoothing()
{
    smoothingCoefficient = 1.0 - std::pow(kSmoothingResidue, kSmoothingHz / sampleRate);
}

void StripEffectExpander::updateAttack()
{
    attackCoefficient = dynamicsAttackRate(attackMs, sampleRate);
}

void StripEffectExpander::updateRelease()
{
    const double releaseMs = std::clamp(dynamics::releaseMs(releaseValue), 10.0, 3000.0);
    releaseShape = makeReleaseShape(shape, releaseMs, sampleRate);
}

void StripEffectExpander::setParameter(std::uint32_t id, double value)
{
    switch (const ParameterId offset = relative(id)) {
    case kTypeOffset:
        type = decodeType(value);
        if (!runsVariant()) gainOut = kNoReduction;
        break;
    case kSideChainOffset:
        sideChainSource = decodeStep(value);
        break;
    case kMonitorOffset:
        monitorOn = decodeStep(value);
        break;
    default:
        setOwnParameter(offset, value);
        break;
    }
}

void StripEffectExpander::setOwnParameter(ParameterId offset, double value)
{
    switch (offset) {
    case Attack:
        attackMs = dynamics::attackMs(value);
        updateAttack();
        break;
    case Release:
        releaseValue = value;
        updateRelease();
        break;
    case Ratio:
        ratioIndex = std::clamp(decodeStep(value, 10.0), 0, 10);
        break;
    case Hold:
        holdSeconds = value * value * kLongestHold;
        break;
    case Threshold:
        thresholdGain = thresholdOf(value);
        inverseThreshold = 1.0 / thresholdGain;
        break;
    case Shape:
        shape = clampUnit(value);
        updateRelease();
        break;
    case Range:
        rangeGain = clampUnit(dynamics::rangeGain(value));
        break;
    case HighPassIn:
        for (KeyFilter& filter : keyFilters) filter.setHighPassIn(decodeStep(value) != 0);
        break;
    case HighPassFrequency:
        for (KeyFilter& filter : keyFilters) filter.setHighPassFrequency(dynamics::keyHighPassHz(value));
        break;
    case LowPassIn:
        for (KeyFilter& filter : keyFilters) filter.setLowPassIn(decodeStep(value) != 0);
        break;
    case LowPassFrequency:
        for (KeyFilter& filter : keyFilters) filter.setLowPassFrequency(dynamics::keyLowPassHz(value));
        break;
    default:
        break;
    }
}

void StripEffectExpander::loadDefaults()
{
    writeDefaults(kDynamicsCode);
}

GainTiming StripEffectExpander::timingOfCall() const
{
    const auto holdSamples = static_cast<std::int32_t>(holdSeconds * sampleRate);
    return {attackCoefficient, releaseShape, smoothingCoefficient, holdSamples};
}

template <typename Run>
void StripEffectExpander::withRule(Run run) const
{
    const GainTiming timing = timingOfCall();
    if (type == Expander)
        run(ExpanderRule{timing, kExpanderExponents[static_cast<std::size_t>(ratioIndex)]});
    else if (type == Gate)
        run(GateRule{timing});
    else
        run(DuckerRule{timing});
}

void StripEffectExpander::processMono(const AudioRecord& in, const AudioRecord& out, std::int32_t frames)
{
    if (passesThrough()) {
        processThrough(in, out, frames);
        gainOut = kNoReduction;
        return;
    }
    inputPair = 0;
    withRule([&](const auto& rule) { runMono(rule, in, out, frames); });
}

void StripEffectExpander::processStereo(const AudioRecord& in, const AudioRecord& out, std::int32_t frames)
{
    if (passesThrough()) {
        processThrough(in, out, frames);
        gainOut = kNoReduction;
        return;
    }
    inputPair = 0;
    withRule([&](const auto& rule) { runStereo(rule, in, out, frames); });
}

template <typename Rule>
void StripEffectExpander::runMono(const Rule& rule, const AudioRecord& in, const AudioRecord& out,
                                  std::int32_t frames)
{
    const double* input = in.left(0);
    const double* key = in.left(sideChainSource);
    const bool monitor = monitorOn != 0;
    const double depth = 1.0 - rangeGain;
    GainState state = gains[Left];
    double lastGain = gainOut;
    for (std::int32_t i = 0; i < frames; ++i) {
        const double x = input[i];
        meterInStereo(x, x);
        const double k = keyFilters[Left].process(key[i]);
        rule.advance(state, std::fabs(k) * inverseThreshold);
        const double gain = depth * state.smoothed + rangeGain;
        const double y = monitor ? k : x * gain;
        meterOutStereo(y, y);
        writeMono(out, i, y);
        lastGain = monitor ? kNoReduction : gain;
    }
    gains[Left] = state;
    gainOut = clampUnit(lastGain);
}

template <typename Rule>
void StripEffectExpander::runStereo(const Rule& rule, const AudioRecord& in, const AudioRecord& out,
                                    std::int32_t frames)
{
    const bool monitor = monitorOn != 0;
    const double depth = 1.0 - rangeGain;
    double lastGain = gainOut;
    for (std::int32_t i = 0; i < frames; ++i) {
        const double l = in.left(0)[i];
        const double r = in.right(0)[i];
        meterInStereo(l, r);
        const double keyL = keyFilters[Left].process(in.left(sideChainSource)[i]);
        const double keyR = keyFilters[Right].process(in.right(sideChainSource)[i]);
        const double level = std::max(std::fabs(keyL), std::fabs(keyR)) * inverseThreshold;
        for (GainState& state : gains) rule.advance(state, level);
        const double gainL = depth * gains[Left].smoothed + rangeGain;
        const double gainR = depth * gains[Right].smoothed + rangeGain;
        const double left = monitor ? keyL : l * gainL;
        const double right = monitor ? keyR : r * gainR;
        meterOutStereo(left, right);
        out.left(0)[i] = left;
        out.right(0)[i] = right;
        lastGain = monitor ? kNoReduction : std::min(gainL, gainR);
    }
    gainOut = clampUnit(lastGain);
}

void StripEffectExpander::getMeter(std::uint32_t id, double* out)
{
    if (answerLevelMeters(id, out))
        *out = clampUnit(*out);
    else if (id == meterBase + kReductionMeter)
        *out = clampUnit(1.0 - gainOut);
}

void StripEffectExpander::resetMeters()
{
    resetMeterState();
    gainOut = kNoReduction;
}

} // namespace velmora
