#pragma once

#include "host/master/base_preset_store.h"
#include "presets/compare_side.h"
#include "presets/preset_block.h"
#include "presets/preset_file.h"

#include <atomic>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

class QORMasterController;

/// The whole state of an instance as presets: what the user hears, what it is compared with, and the bank
/// that the host stores. `onParameterChanged` may run on the audio thread, one call at a time; everything
/// else belongs to the main thread and may run meanwhile.
class PresetStore final : public QORBasePresetStore {
public:
    /// Takes the user's zoom and hints from the stored settings, and all values from the factory bank.
    explicit PresetStore(QORMasterController& master);
    /// Stores zoom and hints.
    ~PresetStore() override;
    PresetStore(const PresetStore&) = delete;
    PresetStore& operator=(const PresetStore&) = delete;

    /// Puts `current` into slot 0 of the bank and writes slots 0, 1 and 2.
    std::size_t writeChunkBlock(std::span<std::uint8_t> out) override;
    /// Takes the bank, makes its current slot `current` and sends editor settings, but no parameters.
    BlockLoad readChunkBlock(std::span<const std::uint8_t> block) override;
    float currentValue(std::int32_t id) const override { return current().value(id); }

    /// Sends all stored values of a preset, between the two commands that frame a bulk change. Sets neither
    /// `current` nor `reference`: whoever calls has, in the same `BulkScope`.
    void applyPreset(const Preset& preset);
    /// Every change of a parameter, on its way to all others, comes here. Never waits or allocates.
    void onParameterChanged(std::int32_t id, double value);

    PresetFileStatus loadPresetFile(const std::string& path, int swapMode, Preset* out) const;
    /// @return false if the file can't be written.
    bool savePresetFile(const std::string& path) const;
    /// A single preset as bytes, as a file or the clipboard holds it.
    std::vector<std::uint8_t> writePresetBlock(const Preset& preset) const;

    /// The active side's records.
    const LivePreset& current() const { return side().preset; }
    const LivePreset& reference() const { return side().reference; }
    bool isDirty() const { return side().dirty.load(std::memory_order_relaxed); }

    std::string currentName() const;
    /// Cut to 23 characters.
    void setCurrentName(std::string_view name);

    /// Name of an entry of the first preset list, "" beyond its end.
    std::string listEntryName(std::int32_t index) const;

    std::span<const Preset> bank() const { return bank_; }
    std::int32_t slotSelected() const { return slotSelected_; } ///< -1: the preset came from a chunk
    std::int32_t auxValue() const { return settings_.auxValue; }
    std::int32_t zoomPercent() const { return settings_.zoomPercent; }
    /// Hover hints of the editor, one switch for all instances of the process.
    static bool hintsShown();
    static void setHintsShown(bool shown);

private:
    CompareSide& side() const { return *active_.load(std::memory_order_relaxed); }
    void takeSettings(const BlockSettings& settings);
    void sendSettings();

    QORMasterController& master_;
    CompareSide sideA_;
    CompareSide sideB_;
    std::atomic<CompareSide*> active_{&sideA_};
    std::atomic<bool> applying_{false};

    std::vector<Preset> bank_;
    Preset defaultPreset_;
    std::int32_t slotSelected_ = 0;
    BlockSettings settings_;
};

} // namespace velmora
