#include "presets/list_text.h"

#include "presets/preset.h"

#include <algorithm>
#include <compare>
#include <cstdint>

namespace velmora {
namespace {

constexpr unsigned char lowerCase(char c)
{
    const auto byte = static_cast<unsigned char>(c);
    return byte >= 'A' && byte <= 'Z' ? static_cast<unsigned char>(byte + ('a' - 'A')) : byte;
}

/// @return bytes of the character at the front of a text that isn't empty, 0 if they aren't UTF-8 or a
/// control character.
std::size_t characterLength(std::string_view text)
{
    const auto lead = static_cast<unsigned char>(text[0]);
    if (lead < 0x80) return lead < 0x20 || lead == 0x7F ? 0 : 1;
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || text.size() < length) return 0;
    std::uint32_t code = lead & (0x7FU >> length);
    for (const char c : text.substr(1, length - 1)) {
        if (!isUtf8Continuation(c)) return 0;
        code = code << 6 | (static_cast<unsigned char>(c) & 0x3FU);
    }
    const bool tooLong = (length == 3 && code < 0x800) || (length == 4 && code < 0x10000);
    const bool surrogate = code >= 0xD800 && code < 0xE000;
    return tooLong || surrogate || code > 0x10FFFF || code < 0xA0 ? 0 : length;
}

} // namespace

std::string shownText(std::string_view text, std::size_t room)
{
    std::string shown;
    while (!text.empty()) {
        const std::size_t length = characterLength(text);
        const std::size_t taken = std::max<std::size_t>(length, 1);
        if (shown.size() + taken > room) break;
        shown += length == 0 ? std::string_view("?") : text.substr(0, length);
        text.remove_prefix(taken);
    }
    return shown;
}

bool namePrecedes(std::string_view a, std::string_view b)
{
    const auto folded = std::lexicographical_compare_three_way(
        a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) { return lowerCase(x) <=> lowerCase(y); });
    return folded != 0 ? folded < 0 : a < b;
}

} // namespace velmora
