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
    for (std::int32_t start = 0; start < frames; start += kPiece) {
        const std::int32_t length = std::min(kPiece, frames - start);
        const auto count = static_cast<std::size_t>(length);
        const double* x = input + start;
        const std::array sources{in.left(sideChainSource) + start};
        std::array<Block, 1> filtered;
        const auto keys = filterKeys(sources, filtered, length);

        Block gain;
        for (std::size_t i = 0; i < count; ++i) gain[i] = std::fabs(keys[0][i]) * inverseThreshold;
        followLevels(rule, gains[Left], gain.data(), count);
        Block y;
        if (monitorOn != 0)
            std::copy_n(keys[0], count, y.begin());
        else
            for (std::size_t i = 0; i < count; ++i) y[i] = x[i] * gain[i];
        meterBlocksOnBothSides(x, y.data(), length);
        writeMono(out, start, y.data(), length);
        gainOut = monitorOn != 0 ? kNoReduction : clampUnit(gain[count - 1]);
    }
}

template <std::size_t channels>
std::array<const double*, channels>
StripEffectExpander::filterKeys(const std::array<double*, channels>& sources,
                                std::array<Block, channels>& filtered, std::int32_t frames)
{
    std::array<KeyFilter::Links, channels> links;
    std::array<BiquadChain, channels> chains;
    std::array<const double*, channels> keys;
    for (std::size_t c = 0; c < channels; ++c) {
        chains[c] = keyFilters[c].chain(sources[c], filtered[c].data(), links[c]);
        keys[c] = chains[c].links.empty() ? sources[c] : filtered[c].data();
    }
    runChains(chains, frames);
    return keys;
}

template <typename Rule>
void StripEffectExpander::followLevels(const Rule& rule, GainState& gain, double* levels,
                                       std::size_t count) const
{
    rule.prepare(levels, count);
    GainState state = gain; // a local stays in registers
    for (std::size_t i = 0; i < count; ++i) {
        rule.advance(state, levels[i]);
        levels[i] = state.smoothed;
    }
    gain = state;
    const double depth = 1.0 - rangeGain;
    for (std::size_t i = 0; i < count; ++i) levels[i] = depth * levels[i] + rangeGain;
}

template <typename Rule>
void StripEffectExpander::runStereo(const Rule& rule, const AudioRecord& in, const AudioRecord& out,
                                    std::int32_t frames)
{
    const std::array inputs{in.left(0), in.right(0)};
    const std::array outputs{out.left(0), out.right(0)};
    meterInBlock(inputs[Left], inputs[Right], frames);
    for (std::int32_t start = 0; start < frames; start += kPiece) {
        const std::int32_t length = std::min(kPiece, frames - start);
        const auto count = static_cast<std::size_t>(length);
        const std::array sources{in.left(sideChainSource) + start, in.right(sideChainSource) + start};
        std::array<Block, kChannels> filtered;
        const auto keys = filterKeys(sources, filtered, length);

        std::array<Block, kChannels> gain;
        for (std::size_t i = 0; i < count; ++i)
            gain[Left][i] = gain[Right][i] =
                std::max(std::fabs(keys[Left][i]), std::fabs(keys[Right][i])) * inverseThreshold;
        double lastGain = kNoReduction;
        for (std::size_t c = 0; c < kChannels; ++c) {
            followLevels(rule, gains[c], gain[c].data(), count);
            lastGain = std::min(lastGain, gain[c][count - 1]);
        }
        for (std::size_t c = 0; c < kChannels; ++c) {
            double* y = outputs[c] + start;
            if (monitorOn != 0)
                std::copy_n(keys[c], count, y);
            else
                for (std::size_t i = 0; i < count; ++i)
                    y[i] = inputs[c][start + static_cast<std::int32_t>(i)] * gain[c][i];
        }
        gainOut = monitorOn != 0 ? kNoReduction : clampUnit(lastGain);
    }
    meterOutBlock(outputs[Left], outputs[Right], frames);
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
