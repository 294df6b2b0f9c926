#pragma once

#include "host/master/master_controller.h"

#include <memory>

namespace velmora {
class PresetStore;
}

namespace velmora::vst24 {

class QORVST24EffectWrapper;

/// The way in for controller, preset store and editor. Its flags belong to whoever holds the wrapper's claim.
class QORVST24MasterController : public QORMasterController {
public:
    explicit QORVST24MasterController(QORVST24EffectWrapper& effectWrapper);
    ~QORVST24MasterController() override;

    void setParameter(std::int32_t id, double value) override;
    void editParameter(std::int32_t id, double value) override;
    void beginGesture(std::int32_t id) override;
    void endGesture(std::int32_t id) override;
    void writeStoredSetting(std::int32_t id, double value) override;
    void readStoredSetting(std::int32_t id, double* out) override;
    QORBasePresetStore* getPresetStore() override;
    QORBaseParametersController* getController() override { return controller; }
    void beginBulk() override;
    void endBulk() override;

    PresetStore* store() { return presetStore.get(); }
    void setController(QORBaseParametersController* newController) { controller = newController; }

    /// The controller's reaction to a change; nothing happens while it is held back or already reacting.
    void react(std::int32_t id, double value);

private:
    static constexpr std::int32_t kNoGesture = -1;

    void send(std::int32_t id, double value);
    void sendSilently(std::int32_t id, double value);

    QORVST24EffectWrapper& wrapper;
    QORBaseParametersController* controller = nullptr;
    bool viewChange = false; // the next change sent is the reaction to an edit that the host has heard
    bool inReaction = false;
    bool silent = false; // the host hears, the controller doesn't
    std::int32_t gestureId = kNoGesture;
    std::unique_ptr<PresetStore> presetStore;
};

} // namespace velmora::vst24
