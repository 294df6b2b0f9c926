#include "modules/dehummer/strip_effect_dehummer.h"

#include "params/laws/special_laws.h"
#include "params/type_codes.h"

#include <algorithm>
#include <array>

namespace velmora {

namespace {

enum Offset : ParameterId { EvenOdd = kOwnOffset, Brightness, Attenuation, Frequency, HzOffset };
constexpr std::uint32_t kReductionMeter = 2;

} // namespace

StripEffectDehummer::StripEffectDehummer(std::uint32_t windowBaseId, std::uint32_t meterBaseId,
                                         std::uint32_t localBaseId)
    : StripEffect(windowBaseId, meterBaseId, localBaseId)
{
    StripEffectDehummer::setSampleRate(kMinSampleRate);
    StripEffectDehummer::loadDefaults();
    StripEffectDehummer::reset();
}

void StripEffectDehummer::clearReduction()
{
    reduction.setSampleRate(sampleRate);
    reduction.reset();
    reductionMeter = 0.0;
}

void StripEffectDehummer::reset()
{
    resetMeterState();
    comb.reset();
    listener.reset();
    clearReduction();
}

void StripEffectDehummer::setSampleRate(double hz)
{
    sampleRate = std::clamp(hz, kMinSampleRate, kMaxSampleRate);
    comb.setSampleRate(sampleRate);
    listener.setSampleRate(sampleRate);
    clearReduction();
}

void StripEffectDehummer::setParameter(std::uint32_t id, double value)
{
    switch (relative(id)) {
    case kTypeOffset:
        type = decodeType(value);
        if (type == 0) reductionMeter = 0.0; // nothing would move it any more
        break;
    case kMonitorOffset:
        setMonitor(decodeStep(value));
        break;
    case EvenOdd:
        profile.setEvenOdd(value);
        updateGains();
        break;
    case Brightness:
        profile.setBrightness(value);
        updateGains();
        break;
    case Attenuation:
        attenuationDb = dehummer::attenuationDb(value);
        updateGains();
        break;
    case Frequency:
        baseHz = value >= 0.5 ? 60.0 : 50.0;
        updateFrequencies();
        break;
    case HzOffset:
        offsetHz = dehummer::offsetHz(value);
        updateFrequencies();
        break;
    default:
        break;
    }
}

// The listening sections rest while nobody listens; they catch up here.
void StripEffectDehummer::setMonitor(std::int32_t on)
{
    const bool turnsOn = monitor == 0 && on != 0;
    monitor = on;
    if (!turnsOn) return;
    updateGains();
    updateFrequencies();
}

void StripEffectDehummer::updateGains()
{
    shares = profile.shares();
    PerHarmonic db;
    std::transform(shares.begin(), shares.end(), db.begin(),
                   [this](double share) { return attenuationDb * share; });
    comb.setGains(db);
}

void StripEffectDehummer::updateFrequencies()
{
    const double fundamental = baseHz + offsetHz;
    comb.setFundamental(fundamental);
    if (monitor != 0) listener.setFundamental(fundamental);
}

void StripEffectDehummer::loadDefaults()
{
    writeDefaults(kDehummerCode);
}

void StripEffectDehummer::processMono(const AudioRecord& in, const AudioRecord& out, std::int32_t frames)
{
    if (active == 0 || type == 0) {
        processThrough(in, out, frames);
        return;
    }
    for (std::int32_t start = 0; start < frames; start += kPiece)
        processPiece(in.left(0) + start, out, start, std::min(kPiece, frames - start));
}

void StripEffectDehummer::processPiece(const double* input, const AudioRecord& out, std::int32_t start,
                                       std::int32_t frames)
{
    std::array<double, kPiece> piece;
    std::copy_n(input, frames, piece.begin());
    comb.process(piece.data(), frames);
    reduction.follow(input, piece.data(), frames);
    if (monitor != 0) listener.process(input, piece.data(), frames, shares);
    meterBlocks(input, piece.data(), frames);
    writeMono(out, start, piece.data(), frames);
    reductionMeter = reduction.reading();
}

void StripEffectDehummer::processStereo(const AudioRecord& in, const AudioRecord& out, std::int32_t frames)
{
    processThrough(in, out, frames); // the strip is mono
}

void StripEffectDehummer::getMeter(std::uint32_t id, double* out)
{
    if (answerLevelMeters(id, out)) return;
    if (id == meterBase + kReductionMeter) *out = reductionMeter;
}

void StripEffectDehummer::resetMeters()
{
    resetMeterState();
    reductionMeter = 0.0;
}

} // namespace velmora
