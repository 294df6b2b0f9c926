#include "modules/limiter/strip_effect_limiter_opto_vca.h"

#include "params/laws/limiter_laws.h"

#include <cmath>

namespace velmora {

using namespace limiter;

namespace {

constexpr double kDetectorHighPassQ = 0.5;
constexpr double kHighPassOffHz = 10.0;
constexpr double kHighPassMaxHz = 1000.0;
constexpr double kRestartLevel = 1e-5;
constexpr double kSaturatorMeterScale = 0.9; // share of the gain-reduction meter's rate

} // namespace

void StripEffectLimiter_OptoVCA::initFilters()
{
    highPass.init(StripBiquadKind::HighPass, kHighPassOffHz, kDetectorHighPassQ, 1.0);
    highPassHistory = {};
}

void StripEffectLimiter_OptoVCA::reset()
{
    resetMeterState();
    outputGain.snap();
    ceilingInverse.snap();
    opto.reset();
    audio.fill(0.0);
    detect.fill(0.0);
    gains.fill(1.0);
    reductionMeter.reset();
    staleAttack();
    staleRelease();
    highPass.land();
    highPassHistory = {};
}

void StripEffectLimiter_OptoVCA::setSampleRate(double hz)
{
    sampleRate = std::clamp(hz, kMinSampleRate, kMaxSampleRate);
    chunkRate = GlidedGain::chunkRate(sampleRate);
    opto.rates.setSampleRate(sampleRate);
    highPass.setSampleRate(sampleRate);
    staleAttack();
    staleRelease();
    meterStale = true;
}

void StripEffectLimiter_OptoVCA::updateAttack()
{
    if (type == kOpto)
        opto.rates.setAttack(attackNorm, sampleRate);
    else if (type == kVca)
        vca.rates.setAttack(attackNorm, releaseNorm, sampleRate);
}

void StripEffectLimiter_OptoVCA::updateRelease()
{
    if (type == kOpto)
        opto.rates.setRelease(releaseNorm, sampleRate);
    else if (type == kVca)
        vca.rates.setRelease(attackNorm, releaseNorm, sampleRate);
}

// However often the controls were set, they are worked out once. The one that was set last rules the VCA's
// slow fall, so it goes last.
void StripEffectLimiter_OptoVCA::refreshRates()
{
    if (meterStale) reductionMeter.setRate(sampleRate, type == kSaturator ? kSaturatorMeterScale : 1.0);
    if (attackStale && !attackLast) updateAttack();
    if (releaseStale) updateRelease();
    if (attackStale && attackLast) updateAttack();
    attackStale = releaseStale = meterStale = false;
}

void StripEffectLimiter_OptoVCA::setType(std::int32_t newType)
{
    if (newType == type) return;
    type = newType;
    staleAttack();
    staleRelease();
    meterStale = true;
    opto.restart(kRestartLevel);
    vca.restart(kRestartLevel);
    if (!limits(type)) reductionMeter.showNone();
}

void StripEffectLimiter_OptoVCA::setHighPass(double value)
{
    hpfHz = std::clamp(highPassHz(value), kHighPassOffHz, kHighPassMaxHz);
    hpfOn = hpfHz > kHighPassOffHz;
    if (type == kSaturator) {
        highPass.placeAt(hpfHz); // idle here
        highPassHistory = {};
    } else {
        highPass.glideTo(hpfHz);
    }
}

void StripEffectLimiter_OptoVCA::setParameter(std::uint32_t id, double value)
{
    switch (relative(id)) {
    case kTypeOffset:
        setType(decodeType(value));
        break;
    case kSideChainOffset:
        sideChainSource = decodeStep(value);
        break;
    case kMonitorOffset:
        monitor = decodeStep(value);
        break;
    case kAttackOffset:
        attackNorm = value;
        staleAttack();
        break;
    case kReleaseOffset:
        releaseNorm = value;
        staleRelease();
        break;
    case kCeilingOffset:
        ceilingInverse.setTarget(std::pow(10.0, -ceilingDb(value) / 20.0));
        break;
    case kOutputOffset:
        outputGain.setTarget(std::pow(10.0, outputDb(value) / 20.0));
        break;
    case kHighPassOffset:
        setHighPass(value);
        break;
    case kLinkOffset:
        link = decodeStep(value);
        break;
    case kSoftOffset:
        soft = decodeStep(value);
        break;
    default:
        break;
    }
}

void StripEffectLimiter_OptoVCA::loadDefaults()
{
    writeDefaults(kDefaultsCode);
}

void StripEffectLimiter_OptoVCA::getMeter(std::uint32_t id, double* out)
{
    if (answerLevelMeters(id, out)) return;
    if (id == meterBase + kReductionMeter) *out = reductionMeter.reading();
}

void StripEffectLimiter_OptoVCA::resetMeters()
{
    resetMeterState();
    reductionMeter.showNone();
}

void StripEffectLimiter_OptoVCA::setLimiterActive(double state)
{
    limiterActive = decodeStep(state);
    reset();
}

void StripEffectLimiter_OptoVCA::processOpto(const AudioRecord& in, const AudioRecord& out,
                                             std::int32_t frames)
{
    if (hpfOn) highPass.refresh();
    processChunks(in, out, frames, [this](auto width, std::size_t count) VELMORA_KERNEL_LAMBDA {
        const auto limit = [&](auto key) VELMORA_KERNEL_LAMBDA {
            opto.process<Lanes<width>>(key, gains.data(), count, ceilingInverse.value(), soft != 0);
        };
        if (hpfOn)
            highPass.run<kHealing, Lanes<width>>(detect.data(), count, highPassHistory, limit);
        else
            limit([this](std::size_t i) VELMORA_KERNEL_LAMBDA { return detect[i]; });
        applyGains(count);
    });
}

void StripEffectLimiter_OptoVCA::processVca(const AudioRecord& in, const AudioRecord& out,
                                            std::int32_t frames)
{
    if (hpfOn) highPass.refresh();
    processChunks(in, out, frames, [this](auto width, std::size_t count) VELMORA_KERNEL_LAMBDA {
        if (hpfOn) highPass.run<kHealing, Lanes<width>>(detect.data(), count, highPassHistory);
        vca.process<Lanes<width>>(detect.data(), gains.data(), count, ceilingInverse.value(), soft != 0);
        applyGains(count);
    });
}

void StripEffectLimiter_OptoVCA::processUndefined(const AudioRecord& in, const AudioRecord& out,
                                                  std::int32_t frames)
{
    reductionMeter.showNone();
    processThrough(in, out, frames);
}

} // namespace velmora
