#pragma once

#include <string_view>

/// Words of the switches that several modules have.
namespace velmora {

inline constexpr std::string_view kOffOn[]{"Off", "On"};
inline constexpr std::string_view kOutIn[]{"Out", "In"};

} // namespace velmora
