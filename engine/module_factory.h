#pragma once

#include "engine/strip_effect.h"
#include "params/parameter_ids.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace velmora {

/// First ids of the role that a module instance stands in.
struct ModuleBases {
    std::uint32_t window;
    std::uint32_t meter;
    std::uint32_t local;
};

constexpr ModuleBases basesOf(const RoleWindow& window)
{
    return {static_cast<std::uint32_t>(window.windowBase), static_cast<std::uint32_t>(window.meterBase),
            static_cast<std::uint32_t>(window.localBase)};
}

/// What an engine builds its rack with. Either function may return null: the role or code stays empty.
struct ModuleFactory {
    std::function<std::unique_ptr<StripEffect>(Role, const ModuleBases&)> fixed;
    std::function<std::unique_ptr<StripEffect>(std::int32_t code, const ModuleBases&)> insert;
};

/// @return the module of a fixed role; one that passes audio through, metered, if its class isn't built in.
std::unique_ptr<StripEffect> makeFixedModule(Role role, const ModuleBases& bases);

/// @return the module of a Type code (the whole system's); null for every code that is no module, or whose
/// class isn't built in.
std::unique_ptr<StripEffect> makeInsertModule(std::int32_t code, const ModuleBases& bases);

/// The product's own modules.
ModuleFactory productModules();

} // namespace velmora
