// Moves through the lists, undo, and the two sides that the user compares.

#include "host/master/master_controller.h"
#include "presets/preset_library.h"
#include "presets/preset_store.h"

namespace velmora {
namespace {

class FlagScope {
public:
    explicit FlagScope(std::atomic<bool>& flag) : flag_(flag)
    {
        flag_.store(true, std::memory_order_relaxed);
    }
    ~FlagScope() { flag_.store(false, std::memory_order_relaxed); }
    FlagScope(const FlagScope&) = delete;
    FlagScope& operator=(const FlagScope&) = delete;

private:
    std::atomic<bool>& flag_;
};

} // namespace

void PresetStore::beginPresetStep()
{
    const BulkScope bulk(master_);
    if (!undoing_.load(std::memory_order_relaxed)) ring_.beginPresetStep(position_, current());
}

void PresetStore::endPresetStep()
{
    const BulkScope bulk(master_);
    if (!undoing_.load(std::memory_order_relaxed)) ring_.endPresetStep(position_);
}

void PresetStore::selectGroup(std::int32_t group)
{
    if (group == kGroupUser) library_.scanUserFolder();
    if (group == position_.group) return;
    const BulkScope bulk(master_);
    beginPresetStep();
    position_ = {.group = group, .folder = 0, .entry = -1};
    endPresetStep();
}

void PresetStore::selectFolder(std::int32_t folder)
{
    const BulkScope bulk(master_);
    beginPresetStep();
    if (folder != position_.folder) position_ = {.group = position_.group, .folder = folder, .entry = -1};
    endPresetStep();
}

void PresetStore::selectEntry(std::int32_t index)
{
    const BulkScope bulk(master_);
    beginPresetStep();
    position_.entry = index;
    loadPosition();
    endPresetStep();
}

void PresetStore::nudgePrevious()
{
    selectEntry(position_.entry >= 1 ? position_.entry - 1 : 0);
}

void PresetStore::nudgeNext()
{
    const std::int32_t last = library_.entryCount(position_.group, position_.folder) - 1;
    selectEntry(position_.entry < last ? position_.entry + 1 : last);
}

void PresetStore::loadPosition()
{
    Preset loaded = current().snapshot();
    library_.loadEntry(position_.group, position_.folder, position_.entry, &loaded);
    side().load(loaded);
    applyPreset(loaded);
}

void PresetStore::undo()
{
    const BulkScope bulk(master_);
    const UndoStep* step = ring_.stepToUndo();
    if (!step) return;
    const FlagScope undoing(undoing_);
    if (step->isPresetChange) goTo(step->beforePosition);
    restore(step->before);
    ring_.steppedBack();
}

void PresetStore::redo()
{
    const BulkScope bulk(master_);
    const UndoStep* step = ring_.stepForward();
    if (!step) return;
    const FlagScope undoing(undoing_);
    if (step->isPresetChange)
        goTo(step->afterPosition);
    else
        restore(step->after);
}

/// The entry is loaded for its reference, too. Where no entry was chosen there is nothing to load.
void PresetStore::goTo(const ListPosition& position)
{
    if (position.group != position_.group && position.group == kGroupUser) library_.scanUserFolder();
    position_ = position;
    if (position.entry >= 0) loadPosition();
}

void PresetStore::restore(const Preset& preset)
{
    CompareSide& active = side();
    active.preset.assign(preset);
    active.dirty.store(!active.preset.hasValuesOf(active.reference), std::memory_order_relaxed);
    applyPreset(preset);
}

void PresetStore::selectSide(Side chosen)
{
    const BulkScope bulk(master_);
    active_.store(chosen == Side::A ? &sideA_ : &sideB_, std::memory_order_relaxed);
    applyPreset(current().snapshot());
}

void PresetStore::copyCompareSide()
{
    const BulkScope bulk(master_);
    const CompareSide& from = side();
    CompareSide& to = activeSide() == Side::A ? sideB_ : sideA_;
    to.preset.assign(from.preset.snapshot());
    to.reference.assign(from.reference.snapshot());
    to.dirty.store(isDirty(), std::memory_order_relaxed);
}

} // namespace velmora
