#pragma once

#include "engine/module_factory.h"
#include "engine/strip_effect.h"
#include "params/parameter_ids.h"

#include <array>
#include <cstdint>
#include <memory>

namespace velmora {

/// Every module that an insert can hold, one instance per Type code, all built at construction and tuned to
/// the insert's window, so that choosing one is a pointer change.
class InsertBank {
public:
    static constexpr std::int32_t kSize = 256;

    InsertBank(const ModuleFactory& factory, const ModuleBases& bases);

    /// @return the instance of a code; null for codes without a module, beyond the bank's end too.
    StripEffect* operator[](std::int32_t code) const
    {
        return code >= 0 && code < kSize ? entries_[static_cast<unsigned>(code)].get() : nullptr;
    }

private:
    std::array<std::unique_ptr<StripEffect>, kSize> entries_;
};

/// One of the rack's two free positions: its bank, the chosen code, and the last value of each id of its
/// window.
class InsertSlot {
public:
    InsertSlot(Role insertRole, const ModuleFactory& factory)
        : role(insertRole), bank(factory, basesOf(roleWindow(insertRole)))
    {
    }

    /// Records a value that is routed to the insert, whether it holds a module or not.
    void remember(ParameterId id, double value)
    {
        mirror[static_cast<unsigned>(id - roleWindow(role).windowBase)] = value;
    }

    /// Brings the instance of `code` to life after another was chosen: rate, run flag, parameters, silence.
    /// Within a kind the parameters carry over; a special module, or one of another kind, starts from its
    /// defaults.
    /// @return the instance, or null if the code has none.
    StripEffect* choose(std::int32_t code, double sampleRate);

    const Role role;
    std::int32_t type = 0; ///< current Type code, 0 = empty
    bool hasGr = false;    ///< the insert's gain reduction counts towards the total

private:
    static constexpr unsigned kWindowSize = 48;

    void sendMirror(StripEffect& module, ParameterId firstOffset, ParameterId lastOffset) const;

    InsertBank bank;
    std::array<double, kWindowSize> mirror{};
};

} // namespace velmora
