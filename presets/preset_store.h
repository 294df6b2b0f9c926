#pragma once

#include "host/master/base_preset_store.h"
#include "platform/clock.h"
#include "presets/compare_side.h"
#include "presets/preset_block.h"
#include "presets/preset_file.h"
#include "presets/undo_ring.h"

#include <atomic>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

class PresetLibrary;
class QORMasterController;
class SaveDialog;
PresetLibrary& initPresetLibrary();

using TickSource = std::uint32_t (*)(); ///< milliseconds, may wrap

/// The whole state of an instance as presets: what the user hears, what it is compared with, the steps of
/// undo, and the bank that the host stores.
///
/// `onParameterChanged` may run on the audio thread; whoever calls it holds the claim that `BulkScope` takes.
/// Everything else belongs to the main thread: what changes values, steps or the name takes a `BulkScope`
/// itself, what only reads may run beside the audio thread.
class PresetStore final : public QORBasePresetStore {
public:
    enum class Side { A, B };

    /// Takes the user's zoom and hints from the stored settings, and all values from the factory bank.
    explicit PresetStore(QORMasterController& master, PresetLibrary& library = initPresetLibrary(),
                         TickSource ticks = tickMilliseconds);
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

    /// The place in the lists that `current` came from.
    const ListPosition& position() const { return position_; }
    /// Moves of the user through the lists; each is one step of undo. Another group shows its first folder,
    /// another folder no preset yet; neither loads anything. The group that is shown already makes no step.
    void selectGroup(std::int32_t group);
    void selectFolder(std::int32_t folder);
    /// Loads an entry of the folder. One that can't be loaded leaves the values and shows its failure as the
    /// name.
    void selectEntry(std::int32_t index);
    void nudgePrevious();
    void nudgeNext();
    /// Brackets a move that is made of several.
    void beginPresetStep();
    void endPresetStep();

    void undo();
    void redo();
    /// Any thread.
    bool canUndo() const { return ring_.canUndo(); }
    bool canRedo() const { return ring_.canRedo(); }

    /// Makes a side the current one, and heard.
    void selectSide(Side side);
    /// Copies the active side over the other.
    void copyCompareSide();
    Side activeSide() const { return &side() == &sideA_ ? Side::A : Side::B; }
    const LivePreset& compareA() const { return sideA_.preset; }
    const LivePreset& compareB() const { return sideB_.preset; }

    /// The clipboard is the user's: all instances in all processes share it. What it can't take or give, or
    /// what is damaged, changes nothing.
    void copyToClipboard();
    void pasteFromClipboard();

    /// Asks where to and saves `current`. @return false if nothing was saved.
    bool saveCurrentPreset(SaveDialog& dialog);

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
    /// The entry of the lists, -1 if the preset came from a chunk or the clipboard.
    std::int32_t slotSelected() const { return position_.entry; }
    std::int32_t auxValue() const { return settings_.auxValue; }
    std::int32_t zoomPercent() const { return settings_.zoomPercent; }
    /// Hover hints of the editor, one switch for all instances of the process.
    static bool hintsShown();
    static void setHintsShown(bool shown);

private:
    void loadPosition();
    void goTo(const ListPosition& position);
    void restore(const Preset& preset);
    CompareSide& side() const { return *active_.load(std::memory_order_relaxed); }
    void takeSettings(const BlockSettings& settings);
    void sendSettings();

    QORMasterController& master_;
    PresetLibrary& library_;
    const TickSource ticks_;
    CompareSide sideA_;
    CompareSide sideB_;
    std::atomic<CompareSide*> active_{&sideA_};
    std::atomic<bool> applying_{false};
    std::atomic<bool> undoing_{false};
    UndoRing ring_;
    ListPosition position_;
    Preset clipboardPreset_;

    std::vector<Preset> bank_;
    Preset defaultPreset_;
    BlockSettings settings_;
};

} // namespace velmora
