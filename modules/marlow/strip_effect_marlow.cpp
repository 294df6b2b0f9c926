#include "modules/marlow/strip_effect_marlow.h"

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
    updateRates();
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
        updateRates();
        break;
    case Frequency:
        band.freqTarget = marlow::frequencyHz(value);
        updateRates();
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

double StripEffectMarlow::detect(double key)
{
    if (controlMode == MarlowControl::Off) return key;
    detection.design(filterType, controlMode, band);
    return detection.process(key);
}

void StripEffectMarlow::designDynamicFilter(double gainDb)
{
    switch (filterType) {
    case MarlowShape::LowShelf:
        dynamicFilter.design(StripBiquadKind::LowShelf, band.freqNow, band.qShelfNow, gainDb);
        break;
    case MarlowShape::Peak:
        dynamicFilter.design(StripBiquadKind::Peaking, band.freqNow, band.qPeakNow, gainDb);
        break;
    case MarlowShape::HighShelf:
        dynamicFilter.design(StripBiquadKind::HighShelf, band.freqNow, band.qShelfNow, gainDb);
        break;
    }
}

void StripEffectMarlow::processMono(const AudioRecord& in, const AudioRecord& out, std::int32_t frames)
{
    if (active == 0 || type == 0) {
        processThrough(in, out, frames);
        return;
    }
    const double* input = in.left(0);
    const double* key = in.left(sideChainSource);
    const double k = smoothingStep;
    double gainDb = dynamicGainDb;
    for (std::int32_t i = 0; i < frames; ++i) {
        const double x = input[i];
        const double d = key[i];
        meterInMono(x);
        band.advance(k);
        const double detected = detect(d);
        const double level = 20.0 * std::log10(std::fabs(detected) + kLevelFloor) - thresholdDb;
        indicator.follow(level, k);
        gainDb = dynamicGain.process(level);
        designDynamicFilter(gainDb);
        const double filtered = dynamicFilter.process(x);
        const double y = monitor != 0 ? detected : filtered;
        meterOutMono(y);
        writeMono(out, i, y);
    }
    dynamicGainDb = gainDb;
    aboveBelowIndicator = indicator.value();
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
