#include "modules/deesser/strip_effect_deesser.h"

#include "params/laws/special_laws.h"
#include "params/type_codes.h"

#include <algorithm>
#include <cmath>

namespace velmora {

namespace {

enum Offset : ParameterId { Freq = kOwnOffset, Q, Sensitivity, Range, Ratio, Split };
constexpr std::uint32_t kReductionMeter = 2;

constexpr double kBandScale = 32.0; // raises the narrow band to the level of the whole
constexpr double kMonitorGain = 2.0;

double decibelsToGain(double db)
{
    return std::pow(10.0, db * 0.05);
}

// Whole decibels, -24..24.
double sensitivityDb(double v)
{
    return std::trunc(v * v * 48.0 + 0.5) - 24.0;
}

} // namespace

StripEffectDeesser::StripEffectDeesser(std::uint32_t windowBaseId, std::uint32_t meterBaseId,
                                       std::uint32_t localBaseId)
    : StripEffect(windowBaseId, meterBaseId, localBaseId)
{
    StripEffectDeesser::setSampleRate(kMinSampleRate);
    StripEffectDeesser::loadDefaults();
    StripEffectDeesser::reset();
}

void StripEffectDeesser::reset()
{
    resetMeterState();
    filters.reset();
    levels.reset();
    gainComputer.reset();
    gain = 0.0;
}

void StripEffectDeesser::setSampleRate(double hz)
{
    sampleRate = std::clamp(hz, kMinSampleRate, kMaxSampleRate);
    filters.setSampleRate(sampleRate);
    updateRates();
}

void StripEffectDeesser::setParameter(std::uint32_t id, double value)
{
    switch (relative(id)) {
    case kTypeOffset:
        type = decodeType(value);
        if (type == 0) gain = 1.0; // nothing would move the meter any more
        break;
    case kMonitorOffset:
        monitor = decodeStep(value);
        break;
    case Freq:
        frequency = deesser::frequencyHz(value);
        filters.setBand(frequency, q);
        updateRates();
        break;
    case Q:
        q = deesser::q(value);
        filters.setBand(frequency, q);
        break;
    case Sensitivity:
        sensitivityGain = decibelsToGain(sensitivityDb(value));
        break;
    case Range:
        gainComputer.setRangeFloor(decibelsToGain(deesser::rangeDb(value)));
        break;
    case Ratio:
        gainComputer.setRatio(value < 0.5 ? SibilanceGain::Ratio::TwoToOne : SibilanceGain::Ratio::FourToOne);
        break;
    case Split:
        splitMode = decodeStep(value);
        break;
    default:
        break;
    }
}

void StripEffectDeesser::loadDefaults()
{
    writeDefaults(kDeesserCode);
}

void StripEffectDeesser::processMono(const AudioRecord& in, const AudioRecord& out, std::int32_t frames)
{
    if (active == 0 || type == 0) {
        processThrough(in, out, frames);
        return;
    }
    const double* input = in.left(0);
    const SibilanceRates r = rates;
    const double qScale = std::sqrt(q);
    const double bandGain = kBandScale * sensitivityGain;
    double applied = gain;
    for (std::int32_t i = 0; i < frames; ++i) {
        const double x = input[i];
        meterInMono(x);
        levels.followWide(std::fabs(x), r);
        SibilanceFilters::Bands bands = filters.process(x);
        bands.detected *= qScale;
        levels.followBand(std::fabs(bands.detected) * bandGain, r);
        applied = gainComputer.process(levels.wideToBand(), r);
        const double y = mix(x, bands, applied);
        meterOutMono(y);
        writeMono(out, i, y);
    }
    gain = applied;
}

double StripEffectDeesser::mix(double x, const SibilanceFilters::Bands& bands, double applied) const
{
    if (monitor != 0) return kMonitorGain * bands.detected * applied;
    return splitMode != 0 ? bands.low + bands.high * applied : x * applied;
}

void StripEffectDeesser::processStereo(const AudioRecord& in, const AudioRecord& out, std::int32_t frames)
{
    processThrough(in, out, frames); // the strip is mono
}

void StripEffectDeesser::getMeter(std::uint32_t id, double* out)
{
    if (answerLevelMeters(id, out)) return;
    if (id == meterBase + kReductionMeter) *out = 1.0 - gain;
}

void StripEffectDeesser::resetMeters()
{
    resetMeterState();
    gain = 1.0;
}

} // namespace velmora
