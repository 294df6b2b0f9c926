#pragma once

#include "presets/compare_side.h"
#include "presets/preset.h"

#include <array>
#include <atomic>
#include <cstdint>

namespace velmora {

/// A place in the preset lists. @range entry -1: a preset from outside the lists.
struct ListPosition {
    std::int32_t group = 0;
    std::int32_t folder = 0;
    std::int32_t entry = 0;
    bool operator==(const ListPosition&) const = default;
};

struct UndoStep {
    Preset after; ///< of a value step alone
    Preset before;
    bool isPresetChange = false; ///< a move in the lists, not a change of values
    ListPosition beforePosition;
    ListPosition afterPosition;
};

/// The last eight steps of a session, of which seven can be taken back: the oldest slot is where history
/// begins. All calls but `canUndo` and `canRedo` come under one claim, some on the audio thread: nothing here
/// allocates or waits.
class UndoRing {
public:
    static constexpr std::int32_t kSlots = 8;
    static constexpr std::uint32_t kJoinMilliseconds = 50; ///< changes this close make one step

    /// A value is about to change. Changes that follow each other closely join one step; a step behind
    /// something undone drops what could be redone.
    /// @param current the values before the change. @param now in milliseconds, may wrap.
    void noteChange(ParameterId id, double oldValue, double newValue, std::uint32_t now,
                    const LivePreset& current);

    /// Brackets a move in the lists. A move that ends where it began leaves no step.
    void beginPresetStep(const ListPosition& from, const LivePreset& current);
    void endPresetStep(const ListPosition& to);

    /// @return the step to take back, null if there is none. `steppedBack` follows when it is done.
    const UndoStep* stepToUndo() const { return position == oldest ? nullptr : &at(position); }
    void steppedBack();
    /// Moves on. @return the step to do again, null if there is none.
    const UndoStep* stepForward();

    /// Any thread.
    bool canUndo() const { return undoPossible.load(std::memory_order_relaxed); }
    bool canRedo() const { return redoPossible.load(std::memory_order_relaxed); }

private:
    static constexpr std::int32_t next(std::int32_t slot) { return (slot + 1) % kSlots; }
    static constexpr std::int32_t previous(std::int32_t slot) { return (slot + kSlots - 1) % kSlots; }
    UndoStep& at(std::int32_t slot) { return steps[static_cast<std::size_t>(slot)]; }
    const UndoStep& at(std::int32_t slot) const { return steps[static_cast<std::size_t>(slot)]; }
    UndoStep& open(std::int32_t slot, const LivePreset& current);
    void updateArrows();

    std::array<UndoStep, kSlots> steps{};
    std::int32_t oldest = 0;
    std::int32_t newest = 0;
    std::int32_t position = 0; // the step that the current state is behind
    std::uint32_t lastChangeTick = 0;
    std::atomic<bool> undoPossible{false};
    std::atomic<bool> redoPossible{false};
};

} // namespace velmora
