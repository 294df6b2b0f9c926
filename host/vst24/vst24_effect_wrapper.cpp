#include "host/vst24/vst24_effect_wrapper.h"

#include "engine/velmora_mono_effect.h"
#include "host/master/parameter_listener.h"
#include "host/vst24/vst24_editor_wrapper.h"
#include "host/vst24/vst24_master_audio_effect.h"
#include "host/vst24/vst24_master_controller.h"
#include "params/catalogue.h"
#include "params/velmora_mono_controller.h"
#include "presets/factory_bank.h"
#include "presets/preset_store.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace velmora::vst24 {

namespace {

constexpr std::int32_t kInputs = 4;
constexpr std::int32_t kOutputs = 2;
constexpr std::int32_t kPrograms = 1;

bool isMeterReading(std::int32_t id)
{
    return (id >= kFirstMeterId && id <= kLastModuleMeterId) || id == kTotalGainReductionId;
}

} // namespace

QORVST24EffectWrapper::QORVST24EffectWrapper(HostCallback host)
    : AudioEffectX(host, kPrograms, kHostParameterCount), uiThread(std::this_thread::get_id())
{
    masterController = std::make_unique<QORVST24MasterController>(*this);
    controller = std::make_unique<VelmoraMonoController>(masterController.get());
    masterController->setController(controller.get());
    masterAudio = std::make_unique<QORVST24MasterAudioEffect>(*this);
    engine = std::make_unique<VelmoraMonoEffect>();
    engine->master = masterAudio.get();

    editorWrapper = std::make_unique<QORVST24EditorWrapper>(*this);
    setEditor(editorWrapper.get());
    setFlag(effFlagsHasEditor | effFlagsCanReplacing | effFlagsProgramChunks | effFlagsCanDoubleReplacing,
            true);
    effect.numInputs = kInputs;
    effect.numOutputs = kOutputs;
    effect.uniqueID = kUniqueId;
    effect.version = kVersion;
    setInitialDelay(engine->getLatency());

    std::array<double, kHostParameterCount> start{};
    factoryPreset(0, start.data(), nullptr, nullptr);
    for (ParameterId id = 0; id < kIdCount; ++id)
        mailbox.init(id, id < kHostParameterCount ? start[static_cast<unsigned>(id)] : defaultValue(id));

    engine->reset();
}

// A host may close the effect with its window open: the editor still speaks to the others while it closes.
QORVST24EffectWrapper::~QORVST24EffectWrapper()
{
    editorWrapper->close();
}

void QORVST24EffectWrapper::suspend()
{
    engine->reset();
}

void QORVST24EffectWrapper::resume()
{
    engine->reset();
}

void QORVST24EffectWrapper::setSampleRate(float hz)
{
    if (!std::isfinite(hz)) return;
    AudioEffectX::setSampleRate(hz);
    engine->setSampleRate(static_cast<double>(hz));
    setInitialDelay(engine->getLatency());
    noTail(true);
}

void QORVST24EffectWrapper::processReplacing(float** in, float** out, std::int32_t frames)
{
    beginBlock();
    engine->processFloat(in, out, frames);
}

void QORVST24EffectWrapper::processDoubleReplacing(double** in, double** out, std::int32_t frames)
{
    beginBlock();
    engine->processDouble(in, out, frames);
}

void QORVST24EffectWrapper::beginBlock()
{
    audioThread.store(std::this_thread::get_id(), std::memory_order_relaxed);
    mailbox.flush(*engine);
}

// On the user interface's side the change and its reaction are done before the call returns. Any other thread
// may be the audio thread: it never waits.
void QORVST24EffectWrapper::setParameter(std::int32_t id, float value)
{
    if (id < 0 || id > kLastCommandId || !std::isfinite(value)) return;
    const bool command = id >= kIdCount;
    if (command)
        commandPending.store(true);
    else
        value = std::clamp(value, 0.0f, 1.0f);

    if (onUserInterfaceThread())
        claim.enter();
    else if (!claim.tryEnter())
        return deferChange(id, value);
    const bool accepted = command || mailbox.post(id, value);
    processReaction(id, static_cast<double>(value), accepted);
    leaveClaim();
    tellEditor(id, static_cast<double>(value));
}

// The engine gets the change as soon as any; the reaction is left to whoever is reacting just now.
void QORVST24EffectWrapper::deferChange(std::int32_t id, float value)
{
    if (id < kIdCount) mailbox.post(id, value);
    deferredReactions.mark(id);
    if (claim.tryEnter()) leaveClaim(); // the holder may have left before the mark
}

void QORVST24EffectWrapper::setExactParameter(std::int32_t id, double value)
{
    if (id < 0 || id > kRefreshCommand) return;
    bool accepted = true;
    if (id >= kIdCount)
        commandPending.store(true);
    else
        accepted = mailbox.postExact(id, value = std::clamp(value, 0.0, 1.0));
    processReaction(id, value, accepted); // the controller is reacting, so it isn't called again
    tellEditor(id, value);
}

float QORVST24EffectWrapper::getParameter(std::int32_t id)
{
    if (id < 0 || id >= kIdCount) return 0.0f;
    double reading = 0.0;
    if (isMeterReading(id) && engine->getParameter(id, &reading)) return static_cast<float>(reading);
    return mailbox.value(id);
}

void QORVST24EffectWrapper::processReaction(std::int32_t id, double value, bool accepted)
{
    masterController->react(id, value);
    if (id >= kIdCount || !isStored(id)) return;
    if (PresetStore* store = masterController->store())
        store->onParameterChanged(id, std::clamp(value, 0.0, 1.0));
    const RoleWindow* window = windowOf(id);
    const bool insertType =
        window != nullptr && isInsert(window->role) && id == window->windowBase + kTypeOffset;
    if (insertType && accepted && controller != nullptr && controller->isLoading())
        mailbox.repostInsert(*window);
}

// A change left by another thread between the last look and the release is seen by one of the two: that
// thread tries the claim again behind its mark, this one looks again behind the release.
void QORVST24EffectWrapper::leaveClaim()
{
    if (!claim.outermost()) return claim.leave();
    do {
        if (deferredReactions.any())
            deferredReactions.take().forEach([this](ParameterId id) {
                processReaction(id, id < kIdCount ? mailbox.settle(id) : 1.0, true);
            });
        claim.leave();
    } while (deferredReactions.any() && claim.tryEnter());
}

void QORVST24EffectWrapper::tellEditor(std::int32_t id, double value) noexcept
{
    if (!onUserInterfaceThread()) {
        if (id >= kIdCount) commandPending.store(true); // parameters wait in the mailbox
    } else {
        showEditor(id, value);
    }
}

// An editor that runs out of memory misses a picture; the change itself must go its whole way.
void QORVST24EffectWrapper::showEditor(std::int32_t id, double value) noexcept
{
    if (editor == nullptr) return;
    try {
        editor->setParameter(id, value);
    } catch (...) {
    }
}

void QORVST24EffectWrapper::attachEditor(QORParameterListener* openEditor)
{
    uiThread.store(std::this_thread::get_id(), std::memory_order_relaxed);
    editor = openEditor;
    if (openEditor != nullptr) mailbox.remindEditor(); // behind the host's values, at the first idle
}

void QORVST24EffectWrapper::idleEditor()
{
    uiThread.store(std::this_thread::get_id(), std::memory_order_relaxed);
    if (editor == nullptr) return;
    mailbox.takeForEditor([this](ParameterId id) { showEditor(id, mailbox.exactValue(id)); });
    for (ParameterId id = kFirstMeterId; id <= kTotalGainReductionId; ++id) {
        double reading = 0.0;
        if (engine->getParameter(id, &reading)) showEditor(id, reading);
    }
    if (commandPending.exchange(false)) showEditor(kRefreshCommand, 1.0);
    controller->idle();
}

std::int32_t QORVST24EffectWrapper::getChunk(void** data, bool)
{
    const auto claimed = claimReactions();
    return controller->getChunk(data);
}

std::intptr_t QORVST24EffectWrapper::setChunk(void* data, std::intptr_t size, bool)
{
    if (data == nullptr || controller == nullptr) return -1;
    const auto claimed = claimReactions();
    if (size > 0 && size <= INT32_MAX) controller->setChunk(data, static_cast<std::int32_t>(size));
    setParameter(kRefreshCommand, 1.0f);
    return 0;
}

} // namespace velmora::vst24
