#pragma once

#include <array>
#include <cstdint>
#include <string_view>

/// The flat parameter id space: 0..359 host parameters, 361..423 meters, 424..818 editor-local ids, from 819
/// on commands.
namespace velmora {

using ParameterId = std::int32_t;

inline constexpr ParameterId kProcessId = 0;
inline constexpr ParameterId kHostParameterCount = 360;
inline constexpr ParameterId kFirstMeterId = 361;
inline constexpr ParameterId kLastModuleMeterId = 421;
inline constexpr ParameterId kTotalGainReductionId = 423;
inline constexpr ParameterId kViewModeId = 792;
inline constexpr ParameterId kIdCount = 819;
inline constexpr ParameterId kLastCommandId = 897;

/// Commands; they have no stored value.
inline constexpr ParameterId kAuxValueCommand = 819;
inline constexpr ParameterId kHintsCommand = 847;
inline constexpr ParameterId kZoomCommand = 849;
inline constexpr ParameterId kRefreshCommand = 859;
inline constexpr ParameterId kBeginBulkCommand = 860;
inline constexpr ParameterId kEndBulkCommand = 861;

/// Offsets of the rack block, the same in every window.
inline constexpr ParameterId kTypeOffset = 0;
inline constexpr ParameterId kPositionOffset = 1;
inline constexpr ParameterId kMuteOffset = 2;
inline constexpr ParameterId kSoloOffset = 3;
inline constexpr ParameterId kSideChainOffset = 4;
inline constexpr ParameterId kMonitorOffset = 5;
inline constexpr ParameterId kRackBlockSize = 6;
inline constexpr ParameterId kOwnOffset = 16;     ///< first own parameter
inline constexpr ParameterId kLastOwnOffset = 47; ///< last id that an insert's defaults reach

/// Kinds of module; a Type code of the whole system is (kind - 1) x 16 + variant.
enum class ModuleKind : std::int32_t {
    Unknown = -1,
    None = 0,
    Preamp = 1,
    Filters = 2,
    Dynamics = 3,
    Compressor = 4,
    Equalizer = 5,
    Limiter = 6,
    Output = 7,
    Special = 8, ///< De-esser, De-hummer and Marlow, which exist in inserts only
};

/// The nine roles of the rack, in the order in which the engine walks and addresses them.
enum class Role : std::int32_t {
    Input,
    Filters,
    Expander,
    Compressor,
    Eq,
    Limiter,
    Output,
    InsertX,
    InsertY
};
inline constexpr int kRoleCount = 9;

/// Ids that belong to one role.
struct RoleWindow {
    Role role;
    ModuleKind kind; ///< None for the inserts, which take any
    ParameterId windowBase;
    ParameterId windowEnd; ///< one past the last id
    ParameterId meterBase;
    ParameterId meterCount;
    ParameterId localBase;
    std::string_view longPrefix;
    std::string_view shortPrefix;
};

inline constexpr std::array<RoleWindow, kRoleCount> kRoleWindows{{
    {Role::Input, ModuleKind::Preamp, 16, 48, 361, 6, 438, "Pre:", "P:"},
    {Role::Filters, ModuleKind::Filters, 48, 80, 367, 4, 477, "Flt:", "F:"},
    {Role::Expander, ModuleKind::Dynamics, 80, 112, 371, 4, 516, "Gate:", "G:"},
    {Role::Compressor, ModuleKind::Compressor, 112, 144, 375, 4, 555, "Comp:", "C:"},
    {Role::Eq, ModuleKind::Equalizer, 144, 192, 379, 4, 594, "EQ:", "Q:"},
    {Role::Limiter, ModuleKind::Limiter, 192, 224, 383, 4, 633, "Lim:", "L:"},
    {Role::Output, ModuleKind::Output, 224, 256, 387, 12, 672, "Mstr:", "M:"},
    {Role::InsertX, ModuleKind::None, 256, 304, 399, 12, 711, "InsX:", "Ix:"},
    {Role::InsertY, ModuleKind::None, 304, 352, 411, 12, 750, "InsY:", "Iy:"},
}};

constexpr const RoleWindow& roleWindow(Role role)
{
    return kRoleWindows[static_cast<unsigned>(role)];
}

/// @return the window that holds a parameter id of 16..351, or null.
constexpr const RoleWindow* windowOf(ParameterId id)
{
    for (const RoleWindow& window : kRoleWindows)
        if (id >= window.windowBase && id < window.windowEnd) return &window;
    return nullptr;
}

/// @return the window that owns a meter id of 361..422, or null.
constexpr const RoleWindow* meterWindowOf(ParameterId id)
{
    for (const RoleWindow& window : kRoleWindows)
        if (id >= window.meterBase && id < window.meterBase + window.meterCount) return &window;
    return nullptr;
}

constexpr bool isInsert(Role role)
{
    return role == Role::InsertX || role == Role::InsertY;
}

} // namespace velmora
