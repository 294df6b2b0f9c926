#include "modules/marlow/strip_effect_marlow.h"

#include "dsp/lanes.h"
#include "dsp/run_widest.h"
#include "dsp/vector_math.h"
#include "params/laws/special_laws.h"
#include "params/type_codes.h"

#include <algorithm>
#include <cmath>

namespace velmora {

namespace {

enum Offset : ParameterId {
    Threshold = kOwnOffset,
    Time,
    Frequency,
    Above,
    Below,
    Q,
    Transition,
    FilterType,
    ControlFilter
};

enum Meter : std::uint32_t { GainMeter = 2, IndicatorMeter };

constexpr double kLevelFloor = 1e-7; // silence reads -140 dB
constexpr double kGainSpan = 24.0;   // dB, either way

double transitionDb(double v)
{
    return 48.0 * v;
}

} // namespace

StripEffectMarlow::StripEffectMarlow(std::uint32_t windowBaseId, std::uint32_t meterBaseId,
                                     std::uint32_t localBaseId)
    : StripEffect(windowBaseId, meterBaseId, localBaseId)
{
    StripEffectMarlow::setSampleRate(kMinSampleRate);
    StripEffectMarlow::reset();
}

void StripEffectMarlow::reset()
{
    resetMeterState();
    detection.reset();
    dynamicFilter.reset();
    band.land();
    dynamicGain.reset();
    dynamicGainDb = 0.0;
    indicator.reset();
    aboveBelowIndicator = 0.0;
}

void StripEffectMarlow::setSampleRate(double hz)
{
    sampleRate = std::clamp(hz, kMinSampleRate, kMaxSampleRate);
    detection.setSampleRate(sampleRate);
    dynamicFilter.setSampleRate(sampleRate);
    smoothingStep = marlowSmoothingStep(sampleRate);
    ratesAreStale = true;
    dynamicGain.reset();
}

void StripEffectMarlow::setParameter(std::uint32_t id, double value)
{
    switch (relative(id)) {
    case kTypeOffset:
        type = decodeType(value);
        break;
    case kSideChainOffset:
        sideChainSource = decodeStep(value);
        break;
    case kMonitorOffset:
        monitor = decodeStep(value);
        break;
    case Threshold:
        thresholdDb = marlow::thresholdDb(value);
        break;
    case Time:
        timeFactor = marlow::timeFactor(value);
        ratesAreStale = true;
        break;
    case Frequency:
        band.freqTarget = marlow::frequencyHz(value);
        ratesAreStale = true;
        break;
    case Above:
        dynamicGain.aboveDb = marlow::gainDb(value);
        break;
    case Below:
        dynamicGain.belowDb = marlow::gainDb(value);
        break;
    case Q:
        band.qPeakTarget = marlow::peakQ(value);
        band.qShelfTarget = marlow::shelfQ(value);
        break;
    case Transition:
        dynamicGain.transition = transitionDb(value);
        break;
    case FilterType:
        filterType = static_cast<MarlowShape>(decodeStep(value, 2.0));
        break;
    case ControlFilter:
        controlMode = static_cast<MarlowControl>(decodeStep(value, 2.0));
        break;
    default:
        break;
    }
}

void StripEffectMarlow::loadDefaults()
{
    writeDefaults(kMarlowCode);
}

void StripEffectMarlow::updateRates()
{
    if (!ratesAreStale) return;
    dynamicGain.setRates(band.freqTarget, timeFactor, sampleRate);
    ratesAreStale = false;
}

// From the key to the gain, in groups of lanes: filters and followers go through a group sample by sample,
// levels and targets are worked out side by side. Groups overlap, as no filter waits for a follower.
void StripEffectMarlow::detect(MarlowTrack& key, MarlowTrack& gainDb, std::size_t frames)
{
    const bool filters = controlMode != MarlowControl::Off;
    if (filters) detection.design(filterType, controlMode, band, frames);
    runWidest([&](auto width) VELMORA_KERNEL_LAMBDA {
        using V = Lanes<width>;
        DetectionFilter::History history = detection.history(); // in registers, like the followers
        DynamicGain gain = dynamicGain;
        ThresholdIndicator pointer = indicator;
        const DynamicGain::Shares shares = gain.shares();
        const double k = smoothingStep;
        for (std::size_t at = 0; at < frames; at += width) {
            const std::size_t end = std::min<std::size_t>(at + width, frames);
            if (filters)
                for (std::size_t i = at; i < end; ++i) key[i] = detection.process(key[i], i, history);
            const V magnitude = absLanes<V>(loadLanes<V>(&key[at])) + kLevelFloor;
            const V level = 20.0 * log10Lanes<V>(magnitude) - thresholdDb;
            const V target = gain.targetDb<V>(level);
            for (std::size_t i = at; i < end; ++i) {
                pointer.follow(level[i - at], k);
                gainDb[i] = gain.process(target[i - at], shares);
            }
        }
        detection.setHistory(history);
        dynamicGain = gain;
        indicator = pointer;
    });
}

void StripEffectMarlow::filter(MarlowTrack& x, const MarlowTrack& gainDb, bool gainStands, std::size_t frames)
{
    const SectionTracks peak{band.freq, band.qPeak, band.stands(), &gainDb, gainStands};
    const SectionTracks shelf{band.freq, band.qShelf, band.stands(), &gainDb, gainStands};
    if (filterType == MarlowShape::Peak)
        dynamicFilter.design(StripBiquadKind::Peaking, peak, frames);
    else
        dynamicFilter.design(filterType == MarlowShape::LowShelf ? StripBiquadKind::LowShelf
                                                                 : StripBiquadKind::HighShelf,
                             shelf, frames);
    runWidest([&]() VELMORA_KERNEL_LAMBDA {
        InstantSection::History history = dynamicFilter.history();
        for (std::size_t i = 0; i < frames; ++i) x[i] = dynamicFilter.process(x[i], i, history);
        dynamicFilter.setHistory(history);
    });
}

void StripEffectMarlow::runBlock(const double* input, const double* key, const AudioRecord& out,
                                 std::int32_t at, std::int32_t frames)
{
    const auto count = static_cast<std::size_t>(frames);
    MarlowTrack x;
    MarlowTrack detected;
    MarlowTrack gainDb;
    std::copy_n(input + at, count, x.data());
    std::copy_n(key + at, count, detected.data());
    detected.closeBehind(count);
    gainDb.closeBehind(count);
    band.advance(smoothingStep, count);
    detect(detected, gainDb, count);
    const auto end = gainDb.begin() + frames;
    filter(x, gainDb, std::all_of(gainDb.begin(), end, [&](double g) { return g == gainDb[0]; }), count);
    dynamicGainDb = gainDb[count - 1];
    aboveBelowIndicator = indicator.value();

    const MarlowTrack& heard = monitor != 0 ? detected : x;
    meterBlocks(input + at, heard.data(), frames);
    if ((outputMask & 1) == 0) return;
    std::copy_n(heard.data(), count, out.left(0) + at);
    std::copy_n(heard.data(), count, out.right(0) + at);
}

void StripEffectMarlow::processMono(const AudioRecord& in, const AudioRecord& out, std::int32_t frames)
{
    if (active == 0 || type == 0) {
        processThrough(in, out, frames);
        return;
    }
    updateRates();
    constexpr auto kBlock = static_cast<std::int32_t>(kMarlowBlock);
    for (std::int32_t at = 0; at < frames; at += kBlock)
        runBlock(in.left(0), in.left(sideChainSource), out, at, std::min(frames - at, kBlock));
}

void StripEffectMarlow::processStereo(const AudioRecord& in, const AudioRecord& out, std::int32_t frames)
{
    processThrough(in, out, frames); // the strip is mono
}

void StripEffectMarlow::getMeter(std::uint32_t id, double* out)
{
    if (answerLevelMeters(id, out)) return;
    switch (id - meterBase) {
    case GainMeter:
        *out = std::clamp((dynamicGainDb + kGainSpan) / (2.0 * kGainSpan), 0.0, 1.0);
        break;
    case IndicatorMeter:
        *out = (aboveBelowIndicator + 1.0) * 0.5;
        break;
    default:
        break;
    }
}

} // namespace velmora
