#pragma once

#include "params/parameter_ids.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace velmora {

/// One module of the system by its Type code.
struct ModuleType {
    std::int32_t code;
    ModuleKind kind;
    std::int32_t variant;
    std::string_view listName;   ///< name in an insert's list
    std::string_view windowName; ///< name in the module's own window; empty for the specials
};

/// Codes of the special modules.
inline constexpr std::int32_t kDeesserCode = 113;
inline constexpr std::int32_t kDehummerCode = 114;
inline constexpr std::int32_t kMarlowCode = 115;

/// The 25 modules, in rising order of their codes.
std::span<const ModuleType> moduleTypes() noexcept;

/// @return the module of a code, or null for every code that is no module (0 among them).
const ModuleType* findModuleType(std::int32_t code) noexcept;

/// Kind of a Type code: None for 0, Unknown for a code that is no module.
ModuleKind moduleKind(std::int32_t code) noexcept;

/// Name of a Type code in the insert list; "-" for every code that is no module.
std::string_view moduleTypeName(std::int32_t code) noexcept;

/// Name of a variant in the window of its kind; the kind's title word for -1, "-" for anything else unknown.
std::string_view variantName(ModuleKind kind, std::int32_t variant) noexcept;

/// Decodes an insert's Type: the engine's form and the form of controller and editor agree for code / 255 up
/// to code 127.
constexpr std::int32_t insertCodeInEngine(double value)
{
    return static_cast<std::int32_t>(value * 256.0 + 0.5);
}
constexpr std::int32_t insertCodeInController(double value)
{
    return static_cast<std::int32_t>(value * 255.0 + 0.5);
}

} // namespace velmora
