#include "modules/deesser/strip_effect_deesser.h"

#include "dsp/run_widest.h"
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
    for (std::int32_t start = 0; start < frames; start += kPiece)
        processPiece(in.left(0) + start, out, start, std::min(kPiece, frames - start));
}

void StripEffectDeesser::processPiece(const double* input, const AudioRecord& out, std::int32_t start,
                                      std::int32_t frames)
{
    SibilanceFilters::Bands bands;
    filters.process(input, bands, frames);
    const auto count = static_cast<std::size_t>(frames);
    const double qScale = std::sqrt(q);
    for (std::size_t i = 0; i < count; ++i) bands.detected[i] *= qScale;

    Block applied;
    findGains(input, bands.detected.data(), applied.data(), count);
    gain = applied[count - 1];

    Block y;
    if (monitor != 0)
        for (std::size_t i = 0; i < count; ++i) y[i] = kMonitorGain * bands.detected[i] * applied[i];
    else if (splitMode != 0)
        for (std::size_t i = 0; i < count; ++i) y[i] = bands.low[i] + bands.high[i] * applied[i];
    else
        for (std::size_t i = 0; i < count; ++i) y[i] = input[i] * applied[i];
    meterBlocks(input, y.data(), frames);
    writeMono(out, start, y.data(), frames);
}

void StripEffectDeesser::findGains(const double* wide, const double* detected, double* gains,
                                   std::size_t count)
{
    const SibilanceRates r = rates;
    const double bandGain = kBandScale * sensitivityGain;
    SibilanceLevels followed = levels; // locals stay in registers
    SibilanceGain computer = gainComputer;
    for (std::size_t i = 0; i < count; ++i) {
        followed.follow(std::fabs(wide[i]), std::fabs(detected[i]) * bandGain, r);
        gains[i] = computer.follow(followed.wideToBand(), r);
    }
    levels = followed;
    gainComputer = computer;
    runWidest([=](auto width) VELMORA_KERNEL_LAMBDA {
        using V = Lanes<width>;
        mapLanes<V>(gains, gains, count,
                    [&](const V& ratio) VELMORA_KERNEL_LAMBDA { return computer.template gain<V>(ratio); });
    });
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
