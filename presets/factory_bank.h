#pragma once

#include <array>
#include <cstdint>

/// The presets that come with the program. Constant data: readable from any thread, no allocation.
namespace velmora {

inline constexpr std::uint32_t kBroadcastInitId = 10001;
inline constexpr std::uint32_t kStartInitId = 10002; ///< a preset that a build may start from

inline constexpr std::uint32_t kCategoryCount = 8;
inline constexpr std::uint32_t kDesignerCount = 23;
inline constexpr std::int32_t kHouseDesigner = 22; ///< the maker's own presets

/// Where a factory preset stands in the two orders of the menu.
struct PresetOrigin {
    std::int32_t category = -1; ///< -1: in no category, only in the list of all presets
    std::int32_t designer = -1;
};

/// Small picture of a designer, drawn from two colours.
struct DesignerPortrait {
    std::uint32_t ground; ///< 0xRRGGBB
    std::uint32_t mark;
};

/// Who made a preset. Texts end with a zero.
struct FactoryDesigner {
    std::array<char, 64> name{};
    std::array<char, 64> address{};
    const DesignerPortrait* portrait = nullptr; ///< null: there is no such designer
};

/// Looks a factory preset up. Every id has an answer: what isn't in the bank is "Init", all defaults. Each
/// of the out-arguments may be null.
/// @param values 360 normalised values by id; ids that a preset doesn't set keep what they are, so the caller
/// starts from the defaults.
/// @param name 24 bytes, always ended by a zero.
/// @param origin a preset without a category leaves the category alone.
void factoryPreset(std::uint32_t id, double* values, char* name, PresetOrigin* origin);

/// Writes the name of a category, "" for a number that is none.
/// @param text 64 bytes
void factoryCategoryName(std::uint32_t category, char* text);

/// Writes a designer; empty texts and no portrait for an index that is none.
void factoryDesigner(std::uint32_t index, FactoryDesigner* out);

} // namespace velmora
