#include "modules/limiter/strip_effect_limiter_brickwall_saturator.h"

#include "params/laws/limiter_laws.h"

#include <algorithm>
#include <cmath>
#include <type_traits>

namespace velmora {

using namespace limiter;

namespace {

constexpr double kChoices = 10.0; // Mode and Shape have eleven positions, most of them undefined
constexpr double kRestartLevel = 1e-5;

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
    if (type == kSaturator)
        saturatorLevel.setTime(smoothNorm, sampleRate);
    else
        StripEffectLimiter_OptoVCA::updateAttack();
}

void StripEffectLimiter_BrickWall_Saturator::updateRelease()
{
    if (type == kBrickWall)
        brickWall.setRates(BrickWallRates::of(std::clamp(releaseMs(releaseNorm), 10.0, 1000.0), sampleRate));
    else
        StripEffectLimiter_OptoVCA::updateRelease();
}

void StripEffectLimiter_BrickWall_Saturator::setType(double value)
{
    if (decodeType(value) != type) brickWall.restart(kRestartLevel);
    StripEffectLimiter_OptoVCA::setParameter(windowBase + kTypeOffset, value);
}

// The shelves follow the detector's high-pass. Sections that the present type leaves idle land at once.
void StripEffectLimiter_BrickWall_Saturator::setHighPass()
{
    if (type == kSaturator)
        emphasis.glideTo(hpfHz);
    else
        emphasis.placeAt(hpfHz);
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
        staleAttack(); // at every type: the VCA's slow fall is set anew by it
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
    processChunks(in, out, frames, [this](auto width, std::size_t count) VELMORA_KERNEL_LAMBDA {
        brickWall.process<Lanes<width>>(detect.data(), gains.data(), count, ceilingInverse.value(), mode,
                                        soft != 0);
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
    emphasis.refresh();
    const auto curve = static_cast<SaturatorShape>(shape);
    processChunks(in, out, frames, [this, curve](auto width, std::size_t count) VELMORA_KERNEL_LAMBDA {
        const double scale = ceilingInverse.value();
        SaturatorLevel level = saturatorLevel; // the state stays in registers
        const auto emphasise = [&](auto isSoft) VELMORA_KERNEL_LAMBDA {
            constexpr std::size_t kStages = isSoft ? 1 : SaturatorLevel::kStages;
            emphasis.runPre<Lanes<width>, kStages>(
                detect.data(), audio.data(), count,
                [&](std::size_t stage, std::size_t i) VELMORA_KERNEL_LAMBDA {
                    gains[i] =
                        level.step<isSoft>(stage, stage == 0 ? std::fabs(detect[i]) * scale : gains[i]);
                });
        };
        if (soft != 0)
            emphasise(std::true_type{});
        else
            emphasise(std::false_type{});
        saturatorLevel = level;
        saturatorGains<Lanes<width>>(curve, gains.data(), count);
        emphasis.runPost<Lanes<width>>(gains.data(), audio.data(), count);
    });
}

} // namespace velmora
