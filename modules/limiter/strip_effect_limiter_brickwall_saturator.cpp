#include "modules/limiter/strip_effect_limiter_brickwall_saturator.h"

#include "params/laws/limiter_laws.h"

#include <algorithm>

namespace velmora {

using namespace limiter;

namespace {

constexpr double kChoices = 10.0; // Mode and Shape have eleven positions, most of them undefined
constexpr double kRestartLevel = 1e-5;
constexpr double kSaturatorMeterScale = 0.9;

} // namespace

void StripEffectLimiter_BrickWall_Saturator::initFilters()
{
    StripEffectLimiter_OptoVCA::initFilters();
    emphasis.init();
}

void StripEffectLimiter_BrickWall_Saturator::reset()
{
    StripEffectLimiter_OptoVCA::reset();
    brickWall.restart(0.0);
    saturatorLevel.reset();
    emphasis.reset();
}

void StripEffectLimiter_BrickWall_Saturator::setSampleRate(double hz)
{
    StripEffectLimiter_OptoVCA::setSampleRate(hz);
    emphasis.setSampleRate(sampleRate);
}

// Attack has no effect on these two; the saturator's rates come from Smooth.
void StripEffectLimiter_BrickWall_Saturator::updateAttack()
{
    if (type == kBrickWall)
        attackMs = std::clamp(limiter::attackMs(attackNorm), 0.1, 100.0);
    else if (type == kSaturator)
        saturatorLevel.setTime(smoothNorm, sampleRate);
    else
        StripEffectLimiter_OptoVCA::updateAttack();
}

void StripEffectLimiter_BrickWall_Saturator::updateRelease()
{
    if (type == kBrickWall) {
        releaseMs = std::clamp(limiter::releaseMs(releaseNorm), 10.0, 1000.0);
        brickWall.setRelease(releaseMs, sampleRate);
    } else {
        StripEffectLimiter_OptoVCA::updateRelease();
    }
}

void StripEffectLimiter_BrickWall_Saturator::setType(double value)
{
    if (decodeType(value) != type) brickWall.restart(kRestartLevel);
    StripEffectLimiter_OptoVCA::setParameter(windowBase + kTypeOffset, value);
}

// The shelves follow the detector's high-pass. Sections that the present type leaves idle land at once.
void StripEffectLimiter_BrickWall_Saturator::setHighPass()
{
    emphasis.setHighPass(hpfHz);
    if (type == kSaturator)
        hpf.resetState();
    else
        emphasis.reset();
}

void StripEffectLimiter_BrickWall_Saturator::setParameter(std::uint32_t id, double value)
{
    switch (relative(id)) {
    case kTypeOffset:
        setType(value);
        break;
    case kHighPassOffset:
        StripEffectLimiter_OptoVCA::setParameter(id, value);
        setHighPass();
        break;
    case kModeOffset:
        mode = decodeStep(value, kChoices);
        break;
    case kSmoothOffset:
        smoothNorm = value;
        updateAttack(); // at every type: the VCA's slow fall is set anew by it
        break;
    case kShapeOffset:
        shape = decodeStep(value, kChoices);
        break;
    default:
        StripEffectLimiter_OptoVCA::setParameter(id, value);
        break;
    }
}

void StripEffectLimiter_BrickWall_Saturator::processBrickWall(const AudioRecord& in, const AudioRecord& out,
                                                              std::int32_t frames)
{
    if (mode > BrickWallDetector::kLastMode) {
        processUndefined(in, out, frames);
        return;
    }
    processChunks(in, out, frames, 1.0, [this](std::int32_t count) {
        brickWall.process(detect.data(), gains.data(), count, ceilingInverse.value(), mode, soft != 0);
        applyGains(count);
    });
}

void StripEffectLimiter_BrickWall_Saturator::processSaturator(const AudioRecord& in, const AudioRecord& out,
                                                              std::int32_t frames)
{
    if (shape > kLastSaturatorShape) {
        processUndefined(in, out, frames);
        return;
    }
    processChunks(in, out, frames, kSaturatorMeterScale, [this](std::int32_t count) {
        emphasis.runPre(detect.data(), audio.data(), count);
        saturatorLevel.process(detect.data(), gains.data(), count, ceilingInverse.value(), soft != 0);
        saturatorGains(static_cast<SaturatorShape>(shape), gains.data(), count);
        emphasis.runPost(gains.data(), audio.data(), count);
    });
}

} // namespace velmora
