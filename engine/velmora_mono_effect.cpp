#include "engine/velmora_mono_effect.h"

#include "dsp/flush_to_zero.h"
#include "engine/host_samples.h"
#include "params/catalogue.h"
#include "params/type_codes.h"

#include <algorithm>
#include <cmath>

namespace velmora {

namespace {

constexpr ParameterId kGainReductionMeter = 2; ///< offset in a role's meters
constexpr ParameterId kLastRoutedMeterId = 410;
constexpr ParameterId kLastRoutedId = 350;

constexpr double kPositionSteps = 8.0;
constexpr std::int32_t kHighestPosition = 9; // one behind the rack is taken, and empties the chain

// Construction alone has Eq before Compressor.
constexpr std::array kConstructionOrder = {Role::Input,      Role::Filters, Role::Expander, Role::Eq,
                                           Role::Compressor, Role::Limiter, Role::Output};

bool isOn(double value)
{
    return static_cast<std::int32_t>(value + 0.5) != 0;
}

// Also maps what is no number to 0.
double clampReading(double value)
{
    return value > 0.0 ? std::min(value, 1.0) : 0.0;
}

} // namespace

VelmoraMonoEffect::FixedModules VelmoraMonoEffect::createFixedModules(const ModuleFactory& factory)
{
    FixedModules fixed;
    for (const Role role : kConstructionOrder)
        fixed[static_cast<unsigned>(role)] = factory.fixed(role, basesOf(roleWindow(role)));
    return fixed;
}

VelmoraMonoEffect::VelmoraMonoEffect(const ModuleFactory& factory)
    : fixedModules(createFixedModules(factory)),
      insertX(Role::InsertX, factory),
      insertY(Role::InsertY, factory)
{
    for (unsigned c = 0; c < kChannels; ++c)
        inputRecord.channels[c] = outputRecord.channels[c] = blockBuffers[c].data();
    for (const Role role : kConstructionOrder)
        modules.set(role, fixedModules[static_cast<unsigned>(role)].get());
    modules.forEach([this](Role, StripEffect& module) {
        module.shareLevels(&levelMemo);
        module.setSampleRate(sampleRate);
    });
    for (ParameterId id = 0; id < kHostParameterCount; ++id) setParameter(id, defaultValue(id));
    order.restorePositions();
    reset();
}

bool VelmoraMonoEffect::setSampleRate(double hz)
{
    const double oldRate = sampleRate;
    const bool inRange = hz >= kMinSampleRate && hz <= kMaxSampleRate;
    sampleRate = inRange ? hz : (hz > kMaxSampleRate ? kMaxSampleRate : kMinSampleRate);
    if (oldRate != hz)
        modules.forEach([this](Role, StripEffect& module) { module.setSampleRate(sampleRate); });
    return inRange;
}

void VelmoraMonoEffect::reset()
{
    grTotal = 0.0;
    modules.forEach([](Role, StripEffect& module) { module.reset(); });
    for (Channel& channel : blockBuffers) channel.fill(0.0);
    order.rebuild(modules);
    fade.clear();
    fade.setSampleRate(sampleRate);
    lastProcessOn = processOn;
}

void VelmoraMonoEffect::setParameter(std::int32_t id, double value)
{
    if (std::isnan(value)) return;
    if (id == kProcessId) {
        processOn = isOn(std::clamp(value, 0.0, 1.0));
    } else if (const RoleWindow* window = windowOf(id); window != nullptr && id <= kLastRoutedId) {
        setRackParameter(*window, id, value);
    } else if (const RoleWindow* owner = meterWindowOf(id); owner != nullptr && id <= kLastRoutedMeterId) {
        if (StripEffect* module = modules[owner->role])
            module->setParameter(static_cast<std::uint32_t>(id), std::clamp(value, 0.0, 1.0));
    }
}

void VelmoraMonoEffect::setRackParameter(const RoleWindow& window, std::int32_t id, double value)
{
    const Role role = window.role;
    const double held = std::clamp(value, 0.0, 1.0);
    switch (id - window.windowBase) {
    case kTypeOffset:
        if (isInsert(role)) {
            swapInsert(insertSlot(role), held);
        } else {
            route(window, id, held);
            updateActivity();
        }
        break;
    case kPositionOffset:
        setPosition(role, value);
        break;
    case kMuteOffset:
        activity.muteMask.set(role, isOn(held));
        updateActivity();
        break;
    case kSoloOffset:
        activity.soloMask.set(role, isOn(held));
        updateActivity();
        break;
    case kMonitorOffset:
        setMonitor(role, isOn(held));
        route(window, id, held);
        break;
    default:
        route(window, id, held);
        break;
    }
}

void VelmoraMonoEffect::setPosition(Role role, double value)
{
    const double place = value * kPositionSteps + 0.5;
    if (place >= 0.0 && place < kHighestPosition + 1)
        order.setPosition(role, static_cast<std::int32_t>(place));
}

void VelmoraMonoEffect::setMonitor(Role role, bool on)
{
    monitorMask.set(role, on);
    if (on) {
        monitoredModule = modules[role];
        monitorActive = true;
    } else if (!monitorMask.any()) {
        monitoredModule = nullptr;
        monitorActive = false;
    }
}

void VelmoraMonoEffect::swapInsert(InsertSlot& slot, double value)
{
    const std::int32_t code = insertCodeInEngine(value);
    if (code == slot.type) {
        if (StripEffect* module = modules[slot.role]) module->resetMeters();
        return;
    }
    StripEffect* chosen = slot.choose(code, sampleRate);
    if (chosen != nullptr) chosen->shareLevels(&levelMemo);
    modules.set(slot.role, chosen);
    order.requestRebuild();
    updateActivity();
}

void VelmoraMonoEffect::route(const RoleWindow& window, std::int32_t id, double value)
{
    if (isInsert(window.role)) insertSlot(window.role).remember(id, value);
    if (StripEffect* module = modules[window.role])
        module->setParameter(static_cast<std::uint32_t>(id), value);
}

void VelmoraMonoEffect::updateActivity()
{
    modules.forEach([this](Role role, StripEffect& module) {
        if (activity.runs(role))
            module.activate();
        else
            module.deactivate();
    });
}

bool VelmoraMonoEffect::getParameter(std::int32_t id, double* out)
{
    if (id == kTotalGainReductionId) {
        *out = clampReading(grTotal);
        return true;
    }
    const RoleWindow* owner = id <= kLastModuleMeterId ? meterWindowOf(id) : nullptr;
    if (owner == nullptr) return false;
    double reading = 0.0;
    if (StripEffect* module = modules[owner->role])
        module->getMeter(static_cast<std::uint32_t>(id), &reading);
    *out = clampReading(reading);
    return true;
}

void VelmoraMonoEffect::processFloat(float** inputs, float** outputs, std::int32_t frames)
{
    process(inputs, outputs, frames);
}

void VelmoraMonoEffect::processDouble(double** inputs, double** outputs, std::int32_t frames)
{
    process(inputs, outputs, frames);
}

void VelmoraMonoEffect::processBypassedFloat(float** inputs, float** outputs, std::int32_t frames)
{
    processBypassed(inputs, outputs, frames);
}

void VelmoraMonoEffect::processBypassedDouble(double** inputs, double** outputs, std::int32_t frames)
{
    processBypassed(inputs, outputs, frames);
}

template <typename Sample>
void VelmoraMonoEffect::process(Sample** inputs, Sample** outputs, std::int32_t frames)
{
    const FlushToZero denormalsOff;
    if (!wasProcessing) {
        lastProcessOn = processOn;
        fade.startIn();
    }
    wasProcessing = true;
    if (processOn != lastProcessOn) {
        fade.start(processOn);
        lastProcessOn = processOn;
    }
    if (processOn || fade.fadingOut())
        activeBlock(inputs, outputs, frames);
    else
        passThroughBlock(inputs, outputs, frames);
}

template <typename Sample>
void VelmoraMonoEffect::processBypassed(Sample** inputs, Sample** outputs, std::int32_t frames)
{
    const FlushToZero denormalsOff;
    if (wasProcessing && processOn) fade.startOut();
    wasProcessing = false;
    if (fade.fadingOut())
        activeBlock(inputs, outputs, frames);
    else
        passThroughBlock(inputs, outputs, frames);
}

template <typename Sample>
void VelmoraMonoEffect::passThroughBlock(Sample** inputs, Sample** outputs, std::int32_t frames)
{
    if (inputs != nullptr && outputs != nullptr && frames > 0) {
        for (Sample* output : {outputs[0], outputs[1]}) {
            if (output == nullptr) continue;
            if (inputs[0] != nullptr)
                std::copy_n(inputs[0], frames, output);
            else
                std::fill_n(output, frames, Sample{0});
        }
    }
    modules.forEach([](Role, StripEffect& module) { module.resetMeters(); });
}

template <typename Sample>
void VelmoraMonoEffect::activeBlock(Sample** inputs, Sample** outputs, std::int32_t frames)
{
    if (inputs == nullptr || outputs == nullptr) return;
    const auto sources = chooseSources(inputs);
    for (std::int32_t start = 0; start < frames; start += kSubBlock) {
        const std::int32_t count = std::min(kSubBlock, frames - start);
        // Every source is read before anything is written: a host may hand in one buffer for both.
        readSamples(sources, blockBuffers, start, count);
        runSubBlock(count);
        writeSamples(blockBuffers[0].data(), outputs[1], start, count);
        writeSamples(blockBuffers[0].data(), outputs[0], start, count);
    }

    grTotal = fade.fadingOut() ? 0.0 : totalGainReduction();
    fade.finishBlock();
}

void VelmoraMonoEffect::runSubBlock(std::int32_t frames)
{
    if (fade.running()) {
        std::copy_n(blockBuffers[0].begin(), frames, dryBuffers[0].begin());
        std::copy_n(blockBuffers[1].begin(), frames, dryBuffers[1].begin());
    }
    if (order.rebuildPending()) order.rebuild(modules);
    walkChain(frames);
    if (fade.running())
        fade.blend(blockBuffers[0].data(), blockBuffers[1].data(), dryBuffers[0].data(), dryBuffers[1].data(),
                   frames);
}

void VelmoraMonoEffect::walkChain(std::int32_t frames)
{
    for (StripEffect* module : order.chain()) {
        if (module == nullptr) continue;
        module->processMono(inputRecord, outputRecord, frames);
        if (monitorActive && module == monitoredModule) break;
    }
}

double VelmoraMonoEffect::gainReductionOf(Role role) const
{
    double reduction = 0.0;
    if (StripEffect* module = modules[role])
        module->getMeter(static_cast<std::uint32_t>(roleWindow(role).meterBase + kGainReductionMeter),
                         &reduction);
    return reduction;
}

double VelmoraMonoEffect::totalGainReduction() const
{
    const double grCompressor = gainReductionOf(Role::Compressor);
    const double grLimiter = gainReductionOf(Role::Limiter);
    const double grInsertX = insertX.hasGr ? gainReductionOf(Role::InsertX) : 0.0;
    const double grInsertY = insertY.hasGr ? gainReductionOf(Role::InsertY) : 0.0;
    return 1.0 - (1.0 - grCompressor) * (1.0 - grLimiter) * (1.0 - grInsertX) * (1.0 - grInsertY);
}

} // namespace velmora
