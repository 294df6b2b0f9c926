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

} // namespace

void StripEffectLimiter_OptoVCA::initFilters()
{
    hpf.initStripBiquad(kMinSampleRate, StripBiquadKind::HighPass, kHighPassOffHz, kDetectorHighPassQ, 1.0);
    hpf.setEnabled(true);
    hpf.setFrequency(kHighPassOffHz); // a section designs itself with its first setting after enabling
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
    reductionMeter.setSampleRate(sampleRate);
    reductionMeter.reset();
    updateAttack();
    updateRelease();
    hpf.resetState();
}

void StripEffectLimiter_OptoVCA::setSampleRate(double hz)
{
    sampleRate = std::clamp(hz, kMinSampleRate, kMaxSampleRate);
    chunkRate = GlidedGain::chunkRate(sampleRate);
    reductionMeter.setSampleRate(sampleRate);
    opto.setSampleRate(sampleRate);
    hpf.setSampleRate(sampleRate);
    updateAttack();
    updateRelease();
}

void StripEffectLimiter_OptoVCA::updateAttack()
{
    if (type == kOpto)
        attackMs = opto.setAttack(attackNorm, sampleRate);
    else if (type == kVca)
        attackMs = vca.setAttack(attackNorm, releaseNorm, sampleRate);
}

void StripEffectLimiter_OptoVCA::updateRelease()
{
    if (type == kOpto)
        releaseMs = opto.setRelease(releaseNorm, sampleRate);
    else if (type == kVca)
        releaseMs = vca.setRelease(attackNorm, releaseNorm, sampleRate);
}

void StripEffectLimiter_OptoVCA::setType(std::int32_t newType)
{
    if (newType == type) return;
    type = newType;
    updateAttack();
    updateRelease();
    opto.restart(kRestartLevel);
    vca.restart(kRestartLevel);
    if (!limits(type)) reductionMeter.showNone();
}

void StripEffectLimiter_OptoVCA::setHighPass(double value)
{
    hpfHz = std::clamp(highPassHz(value), kHighPassOffHz, kHighPassMaxHz);
    hpfOn = hpfHz > kHighPassOffHz;
    hpf.setFrequency(hpfHz);
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
        updateAttack();
        break;
    case kReleaseOffset:
        releaseNorm = value;
        updateRelease();
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

void StripEffectLimiter_OptoVCA::loadChunk(const AudioRecord& in, std::int32_t start, std::int32_t count)
{
    const double* main = in.left(0) + start;
    const double* key = in.left(sideChainSource) + start;
    for (unsigned i = 0; i < static_cast<unsigned>(count); ++i) {
        audio[i] = main[i];
        detect[i] = key[i];
    }
}

// Monitor replaces the output alone; detector and meters go on. The two meters are chains of their own that
// run side by side, so the input is read here once more, before the output takes its place.
void StripEffectLimiter_OptoVCA::storeChunk(const AudioRecord& in, const AudioRecord& out, std::int32_t start,
                                            std::int32_t count)
{
    const double* main = in.left(0) + start;
    const double gain = outputGain.value();
    for (std::int32_t i = 0; i < count; ++i) {
        const auto n = static_cast<unsigned>(i);
        const double y = monitor != 0 ? detect[n] : audio[n] * gain;
        meterInMono(main[i]);
        meterOutMono(y);
        writeMono(out, start + i, y);
    }
}

void StripEffectLimiter_OptoVCA::filterDetect(std::int32_t count)
{
    if (hpfOn) hpf.runBlock(detect.data(), count);
}

void StripEffectLimiter_OptoVCA::processOpto(const AudioRecord& in, const AudioRecord& out,
                                             std::int32_t frames)
{
    processChunks(in, out, frames, 1.0, [this](std::int32_t count) {
        filterDetect(count);
        opto.process(detect.data(), gains.data(), count, ceilingInverse.value(), soft != 0);
        applyGains(count);
    });
}

void StripEffectLimiter_OptoVCA::processVca(const AudioRecord& in, const AudioRecord& out,
                                            std::int32_t frames)
{
    processChunks(in, out, frames, 1.0, [this](std::int32_t count) {
        filterDetect(count);
        vca.process(detect.data(), gains.data(), count, ceilingInverse.value(), soft != 0);
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
