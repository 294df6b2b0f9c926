#pragma once

#include <cstdint>

/// The presets that come with the program. Constant data: readable from any thread, no allocation.
namespace velmora {

inline constexpr std::uint32_t kBroadcastInitId = 10001;
inline constexpr std::uint32_t kStartInitId = 10002; ///< a preset that a build may start from

/// Where a factory preset stands in the two orders of the menu.
struct PresetOrigin {
    std::int32_t category = -1; ///< -1: in no category, only in the list of all presets
    std::int32_t designer = -1;
};

/// Presets 0, 1, ... that the lists show.
std::uint32_t factoryPresetCount();

/// Looks a factory preset up. Every id has an answer: what isn't in the bank is "Init", all defaults. Each
/// of the out-arguments may be null.
/// @param values 360 normalised values by id; ids that a preset doesn't set keep what they are.
/// @param name 24 bytes, always ended by a zero.
/// @param origin a preset without a category leaves the category alone.
void factoryPreset(std::uint32_t id, double* values, char* name, PresetOrigin* origin);

} // namespace velmora
