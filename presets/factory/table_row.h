#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace velmora {

/// Ids that presets store.
inline constexpr std::size_t kStoredIdCount = 192;
/// Stands in a row for an id that the preset leaves alone.
inline constexpr std::int16_t kLeftAlone = -1;
/// Values of a row have four decimals at most, so that whole numbers hold them exactly.
inline constexpr double kTableSteps = 10000.0;

/// A factory preset as the build makes it from its text.
struct FactoryTableRow {
    std::uint32_t id;
    std::int32_t designer;
    std::array<std::int16_t, kStoredIdCount> values; ///< by stored id, in rising order
};

/// The stored ids, in the order of a row's values.
std::span<const std::int16_t, kStoredIdCount> factoryIds() noexcept;
/// All presets that are written in the texts, in rising order of their ids.
std::span<const FactoryTableRow> factoryTable() noexcept;

} // namespace velmora
