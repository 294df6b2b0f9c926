#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Texts of the preset lists. File names are any bytes; what is shown of them is UTF-8.
namespace velmora {

/// @return `text` as UTF-8 of at most `room` bytes: cut in front of a character that doesn't fit whole, each
/// control character and each byte that belongs to no character shown as '?'.
std::string shownText(std::string_view text, std::size_t room);

/// Order of names: without regard to the case of A..Z, a prefix first; names that differ in nothing else
/// stand in the order of their bytes.
bool namePrecedes(std::string_view a, std::string_view b);

} // namespace velmora
