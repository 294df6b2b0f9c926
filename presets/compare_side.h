#pragma once

#include "presets/preset.h"

#include <atomic>
#include <bit>
#include <cstdint>

namespace velmora {

/// A preset whose values the audio thread changes while others read: each value is an atomic word of its own.
/// The name changes under the claim alone, for a new step of undo copies it on whatever thread.
class LivePreset {
public:
    PresetName name{};

    /// @range id 0..359
    float value(ParameterId id) const { return cell(id).load(std::memory_order_relaxed); }
    void setValue(ParameterId id, float value) { cell(id).store(value, std::memory_order_relaxed); }

    void assign(const Preset& preset)
    {
        name = preset.name;
        for (ParameterId id = 0; id < kHostParameterCount; ++id)
            setValue(id, preset.values[static_cast<std::size_t>(id)]);
    }

    Preset snapshot() const
    {
        Preset preset{.name = name, .values = {}};
        for (ParameterId id = 0; id < kHostParameterCount; ++id)
            preset.values[static_cast<std::size_t>(id)] = value(id);
        return preset;
    }

    /// Compares all values bit by bit, names left aside.
    bool hasValuesOf(const LivePreset& other) const
    {
        for (ParameterId id = 0; id < kHostParameterCount; ++id)
            if (std::bit_cast<std::uint32_t>(value(id)) != std::bit_cast<std::uint32_t>(other.value(id)))
                return false;
        return true;
    }

private:
    std::atomic<float>& cell(ParameterId id) { return values_[static_cast<std::size_t>(id)]; }
    const std::atomic<float>& cell(ParameterId id) const { return values_[static_cast<std::size_t>(id)]; }

    std::array<std::atomic<float>, kHostParameterCount> values_{};
    static_assert(std::atomic<float>::is_always_lock_free);
};

/// One of the two states that the user compares.
struct CompareSide {
    LivePreset preset;
    LivePreset reference;           ///< the preset as it was loaded
    std::atomic<bool> dirty{false}; ///< the values of `preset` and `reference` differ

    /// Takes a preset as freshly loaded.
    void load(const Preset& loaded)
    {
        preset.assign(loaded);
        reference.assign(loaded);
        dirty.store(false, std::memory_order_relaxed);
    }
};

} // namespace velmora
