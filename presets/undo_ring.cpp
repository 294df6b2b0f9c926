#include "presets/undo_ring.h"

#include <cmath>

namespace velmora {
namespace {

/// Changes that stay within the same ten-thousandth don't count.
bool isSmallerThanAStep(double oldValue, double newValue)
{
    constexpr double kUnits = 10000.0;
    return std::trunc(oldValue * kUnits + 0.5) == std::trunc(newValue * kUnits + 0.5);
}

} // namespace

void UndoRing::noteChange(ParameterId id, double oldValue, double newValue, std::uint32_t now,
                          const LivePreset& current)
{
    if (isSmallerThanAStep(oldValue, newValue)) return;
    const std::uint32_t elapsed = now - lastChangeTick;
    lastChangeTick = now;
    if (elapsed > kJoinMilliseconds) {
        UndoStep& step = open(next(position), current);
        step.isPresetChange = false;
        step.after = step.before;
    }
    if (id < kHostParameterCount)
        at(newest).after.values[static_cast<std::size_t>(id)] = static_cast<float>(newValue);
    updateArrows();
}

void UndoRing::beginPresetStep(const ListPosition& from, const LivePreset& current)
{
    UndoStep& step = open(next(newest), current);
    step.isPresetChange = true;
    step.beforePosition = from;
    step.afterPosition = {-1, -1, -1};
    updateArrows();
}

void UndoRing::endPresetStep(const ListPosition& to)
{
    UndoStep& step = at(newest);
    step.afterPosition = to;
    if (step.afterPosition == step.beforePosition) newest = position = previous(newest);
    updateArrows();
}

UndoStep& UndoRing::open(std::int32_t slot, const LivePreset& current)
{
    newest = position = slot;
    if (newest == oldest) oldest = next(oldest);
    at(slot).before = current.snapshot();
    return at(slot);
}

void UndoRing::steppedBack()
{
    position = previous(position);
    updateArrows();
}

const UndoStep* UndoRing::stepForward()
{
    if (position == newest) return nullptr;
    position = next(position);
    updateArrows();
    return &at(position);
}

void UndoRing::updateArrows()
{
    undoPossible.store(position != oldest, std::memory_order_relaxed);
    redoPossible.store(position != newest, std::memory_order_relaxed);
}

} // namespace velmora
