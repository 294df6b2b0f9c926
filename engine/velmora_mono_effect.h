#pragma once

#include "dsp/meter_cell.h"
#include "engine/activity.h"
#include "engine/audio_record.h"
#include "engine/insert_bank.h"
#include "engine/module_factory.h"
#include "engine/process_fade.h"
#include "engine/rack_order.h"
#include "host/master/base_audio_processor.h"
#include "params/parameter_ids.h"

#include <array>
#include <cstdint>
#include <memory>

namespace velmora {

class QORMasterAudioProcessor;

/// The audio engine of the strip: owns every module, holds the rack order, and runs host blocks through nine
/// positions in sub-blocks of at most 64 samples, in double precision.
///
/// The signal is mono: channel 0 of the work buffers goes to both outputs. `setParameter` and the process
/// calls belong to the audio thread; `setSampleRate` and `reset` come while no block runs; `getParameter` may
/// come from any thread at any time. Nothing allocates after construction.
class VelmoraMonoEffect final : public QORBaseAudioProcessor {
public:
    /// Ready to process at 44100 Hz, all parameters at their defaults.
    explicit VelmoraMonoEffect(const ModuleFactory& factory = productModules());

    void processFloat(float** inputs, float** outputs, std::int32_t frames) override;
    void processDouble(double** inputs, double** outputs, std::int32_t frames) override;
    void processBypassedFloat(float** inputs, float** outputs, std::int32_t frames) override;
    void processBypassedDouble(double** inputs, double** outputs, std::int32_t frames) override;
    std::int32_t getLatency() const override { return 0; }
    std::int32_t getHalfSampleRate() const override { return static_cast<std::int32_t>(sampleRate * 0.5); }
    bool setSampleRate(double hz) override;
    void reset() override;
    bool canProcessFloat() const override { return true; }
    bool canProcessDouble() const override { return true; }
    /// Ids that nothing owns and values that are no number are dropped; Position apart, values are held
    /// within 0..1.
    void setParameter(std::int32_t id, double value) override;
    bool getParameter(std::int32_t id, double* out) override;

    /// Host services, set by the adapter; the engine itself makes no call on it.
    QORMasterAudioProcessor* master = nullptr;

private:
    static constexpr std::int32_t kSubBlock = 64;
    static constexpr int kChannels = 4;
    static constexpr double kMinSampleRate = 44100.0;
    static constexpr double kMaxSampleRate = 384000.0;

    using Channel = std::array<double, kSubBlock>;

    using FixedModules = std::array<std::unique_ptr<StripEffect>, kRoleCount>; ///< null for the inserts

    static FixedModules createFixedModules(const ModuleFactory& factory);

    void setRackParameter(const RoleWindow& window, std::int32_t id, double value);
    void setPosition(Role role, double value);
    void setMonitor(Role role, bool on);
    void swapInsert(InsertSlot& slot, double value);
    void route(const RoleWindow& window, std::int32_t id, double value);
    void updateActivity();
    InsertSlot& insertSlot(Role role) { return role == Role::InsertX ? insertX : insertY; }

    template <typename Sample>
    void process(Sample** inputs, Sample** outputs, std::int32_t frames);
    template <typename Sample>
    void processBypassed(Sample** inputs, Sample** outputs, std::int32_t frames);
    template <typename Sample>
    void passThroughBlock(Sample** inputs, Sample** outputs, std::int32_t frames);
    template <typename Sample>
    void activeBlock(Sample** inputs, Sample** outputs, std::int32_t frames);
    void runSubBlock(std::int32_t frames);
    void walkChain(std::int32_t frames);
    double totalGainReduction() const;
    double gainReductionOf(Role role) const;

    double sampleRate = kMinSampleRate;
    bool processOn = true;
    MeterCell grTotal; ///< total gain reduction, 0..1

    alignas(64) std::array<Channel, kChannels> blockBuffers{};
    std::array<Channel, 2> dryBuffers{}; ///< channels 0 and 1 before the chain, only while a fade runs
    AudioRecord inputRecord;
    AudioRecord outputRecord;

    LevelMemo levelMemo; ///< of all modules' meters
    const FixedModules fixedModules;
    InsertSlot insertX;
    InsertSlot insertY;
    ModuleTable modules;
    RackOrder order;

    Activity activity;
    RoleMask monitorMask;
    bool monitorActive = false;
    StripEffect* monitoredModule = nullptr; ///< the walk through the chain stops behind it

    ProcessFade fade;
    bool lastProcessOn = true;
    bool wasProcessing = true; ///< the last call was no bypassed one
};

} // namespace velmora
