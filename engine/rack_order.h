#pragma once

#include "engine/strip_effect.h"
#include "params/parameter_ids.h"

#include <array>
#include <atomic>
#include <cstdint>
#include <numeric>

namespace velmora {

/// The module that serves each role, null where there is none. Written on the audio thread, read by meter
/// reads from any thread.
class ModuleTable {
public:
    StripEffect* operator[](Role role) const { return at(role).load(std::memory_order_acquire); }
    void set(Role role, StripEffect* module)
    {
        entries_[static_cast<unsigned>(role)].store(module, std::memory_order_release);
    }

    /// Calls `action(role, module)` for every role that has a module, in the order of the roles.
    template <typename Action>
    void forEach(Action action) const
    {
        for (const RoleWindow& window : kRoleWindows)
            if (StripEffect* module = (*this)[window.role]) action(window.role, *module);
    }

private:
    const std::atomic<StripEffect*>& at(Role role) const { return entries_[static_cast<unsigned>(role)]; }

    std::array<std::atomic<StripEffect*>, kRoleCount> entries_{};
    static_assert(std::atomic<StripEffect*>::is_always_lock_free);
};

/// The rack order: which position each role asks for, and the chain of modules that follows from it. Changes
/// are counted, and the chain follows by one rebuild per sub-block until both counters agree.
class RackOrder {
public:
    using Chain = std::array<StripEffect*, kRoleCount>;

    RackOrder() { restorePositions(); }

    const Chain& chain() const { return chain_; }
    bool rebuildPending() const { return orderRequested != orderApplied; }
    void requestRebuild() { orderRequested = next(orderRequested); }

    /// @param position 0..8; 9 and a double occupation are taken too and leave modules out of the chain.
    void setPosition(Role role, std::int32_t position)
    {
        positions[static_cast<unsigned>(role)] = position;
        requestRebuild();
    }

    /// Every role at its own place.
    void restorePositions() { std::iota(positions.begin(), positions.end(), 0); }

    /// A position behind the last one empties the chain. Of two roles on one position the later wins, and an
    /// empty insert clears it.
    void rebuild(const ModuleTable& modules)
    {
        chain_.fill(nullptr);
        for (const std::int32_t position : positions)
            if (position >= kRoleCount) return;
        for (const RoleWindow& window : kRoleWindows) {
            const std::int32_t position = positions[static_cast<unsigned>(window.role)];
            chain_[static_cast<unsigned>(position)] = modules[window.role];
        }
        orderApplied = next(orderApplied);
    }

private:
    static constexpr std::uint32_t next(std::uint32_t counter) { return (counter + 1) & 255U; }

    Chain chain_{};
    std::array<std::int32_t, kRoleCount> positions{};
    std::uint32_t orderRequested = 1;
    std::uint32_t orderApplied = 0;
};

} // namespace velmora
