#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// Number of single-character edits between two texts, letter case aside.
std::size_t editDistance(std::string_view a, std::string_view b);

/// @return the candidate with the fewest edits to `text`, the first of equals; "" without candidates.
std::string nearestText(std::string_view text, const std::vector<std::string>& candidates);

/// Letter case aside.
bool sameLetters(std::string_view a, std::string_view b);

} // namespace velmora
