#pragma once

#include "engine/insert_bank.h"
#include "tests/engine/placed_module.h"

namespace velmora::test {

/// A module by itself in the first insert, in place on its own buffers, without the engine's protection
/// around it. A preamp is always the same unit.
class LoneModule {
public:
    static constexpr unsigned kChannels = 2 * AudioRecord::kPairs;
    static constexpr std::int32_t kLongest = 64; ///< frames of a piece

    LoneModule(const ModuleType& type, const Values& values, double rate)
        : bank_((turnUnits(0), productModules()), basesOf(window())), module_(bank_[type.code])
    {
        for (unsigned c = 0; c < kChannels; ++c) record_.channels[c] = buffers_[c].data();
        module_->setSampleRate(rate);
        module_->loadDefaults();
        for (ParameterId offset = 0; offset < 48; ++offset)
            if (travels(offset)) set(offset, values[static_cast<unsigned>(offset)]);
        module_->reset();
    }

    void set(ParameterId offset, double value)
    {
        module_->setParameter(static_cast<std::uint32_t>(window().windowBase + offset), value);
    }
    void reset() { module_->reset(); }
    double* channel(unsigned index) { return buffers_[index].data(); }
    /// @param frames 0..kLongest
    void process(std::int32_t frames) { module_->processMono(record_, record_, frames); }
    /// @param index 0..11 @return the reading, 0 for a meter that the module doesn't have
    double meter(int index)
    {
        double reading = 0.0;
        module_->getMeter(static_cast<std::uint32_t>(window().meterBase + index), &reading);
        return reading;
    }

private:
    static const RoleWindow& window() { return roleWindow(Role::InsertX); }

    InsertBank bank_;
    StripEffect* module_;
    std::array<std::array<double, kLongest>, kChannels> buffers_{};
    AudioRecord record_;
};

} // namespace velmora::test
