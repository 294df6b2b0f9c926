#include "host/vst24/vst24_master_controller.h"

#include "host/master/base_parameters_controller.h"
#include "host/master/raised_flag.h"
#include "host/vst24/vst24_effect_wrapper.h"
#include "params/catalogue.h"
#include "platform/settings_store.h"
#include "presets/preset_store.h"

#include <array>
#include <cstring>
#include <string>

namespace velmora::vst24 {

namespace {

std::string settingName(std::int32_t id)
{
    return "QORVelmora: " + std::to_string(id);
}

} // namespace

QORVST24MasterController::QORVST24MasterController(QORVST24EffectWrapper& effectWrapper)
    : wrapper(effectWrapper)
{
    presetStore = std::make_unique<PresetStore>(*this);
}

// The store writes its settings through this object as it goes.
QORVST24MasterController::~QORVST24MasterController()
{
    presetStore.reset();
}

QORBasePresetStore* QORVST24MasterController::getPresetStore()
{
    return presetStore.get();
}

void QORVST24MasterController::setParameter(std::int32_t id, double value)
{
    const auto claimed = wrapper.claimReactions();
    if (viewChange) {
        viewChange = false;
        sendSilently(id, value);
    } else if (inReaction) {
        wrapper.setExactParameter(id, value);
    } else {
        send(id, value);
    }
}

void QORVST24MasterController::beginBulk()
{
    wrapper.enterClaim();
}

void QORVST24MasterController::endBulk()
{
    wrapper.leaveClaim();
}

void QORVST24MasterController::editParameter(std::int32_t id, double value)
{
    const auto claimed = wrapper.claimReactions();
    sendSilently(id, value);
    if (viewChange || controller == nullptr) return;
    const RaisedFlag raised(viewChange);
    controller->parameterChanged(id, value);
}

void QORVST24MasterController::beginGesture(std::int32_t id)
{
    const auto claimed = wrapper.claimReactions();
    endGesture(gestureId);
    if (!isAutomatable(id)) return;
    gestureId = id;
    wrapper.beginEdit(id);
}

void QORVST24MasterController::endGesture(std::int32_t id)
{
    const auto claimed = wrapper.claimReactions();
    if (id == kNoGesture || id != gestureId) return;
    gestureId = kNoGesture;
    wrapper.endEdit(id);
}

void QORVST24MasterController::react(std::int32_t id, double value)
{
    if (silent || inReaction || controller == nullptr) return;
    const RaisedFlag raised(inReaction);
    controller->parameterChanged(id, value);
}

void QORVST24MasterController::send(std::int32_t id, double value)
{
    const auto narrow = static_cast<float>(value);
    if (!isAutomatable(id)) return wrapper.setParameter(id, narrow);
    if (id == gestureId) return wrapper.setParameterAutomated(id, narrow);
    wrapper.beginEdit(id);
    wrapper.setParameterAutomated(id, narrow);
    wrapper.endEdit(id);
}

void QORVST24MasterController::sendSilently(std::int32_t id, double value)
{
    const RaisedFlag raised(silent);
    send(id, value);
}

void QORVST24MasterController::writeStoredSetting(std::int32_t id, double value)
{
    const auto narrow = static_cast<float>(value);
    std::array<std::uint8_t, sizeof narrow> bytes;
    std::memcpy(bytes.data(), &narrow, sizeof narrow);
    SettingsStore().write(settingName(id), bytes);
}

void QORVST24MasterController::readStoredSetting(std::int32_t id, double* out)
{
    const auto bytes = SettingsStore().read(settingName(id));
    float value = 0.0f;
    if (!bytes || bytes->size() != sizeof value) return;
    std::memcpy(&value, bytes->data(), sizeof value);
    if (value >= 0.0f && value <= 1.0f) *out = static_cast<double>(value);
}

} // namespace velmora::vst24
