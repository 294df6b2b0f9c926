#pragma once

#include <cstddef>
#include <string_view>

namespace velmora {

/// @return how many bytes of UTF-8 text fit into `limit` and before a zero byte without cutting a character
constexpr std::size_t wholeCharacters(std::string_view text, std::size_t limit)
{
    std::size_t length = text.find('\0');
    if (length == std::string_view::npos) length = text.size();
    if (length <= limit) return length;
    constexpr std::size_t kLongestTail = 3;
    std::size_t end = limit;
    for (std::size_t back = 0; back <= kLongestTail && end > 0; ++back, --end)
        if ((static_cast<unsigned char>(text[end]) & 0xC0) != 0x80) return end;
    return limit; // no UTF-8
}

} // namespace velmora
