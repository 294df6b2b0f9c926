#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Texts as others hand them over, as by the clipboard: any bytes at all.
namespace velmora::Qorvane {

struct Utf8Character {
    static constexpr char32_t kReplacement = 0xFFFD;

    char32_t code;
    std::size_t length; ///< bytes it took, at least 1
    bool valid;         ///< else a byte that belongs to no character, with the replacement's code
};

/// @param bytes not empty
Utf8Character firstCharacter(std::string_view bytes);

/// @return `bytes` as UTF-8 of at most `room` bytes, cut in front of a character that doesn't fit whole. Zero
/// bytes are left out; each byte that belongs to no character becomes U+FFFD.
std::string cleanUtf8(std::string_view bytes, std::size_t room);

std::string utf8FromLatin1(std::string_view bytes);

/// @param text valid UTF-8 @return with '?' for each character that Latin-1 doesn't have
std::string latin1FromUtf8(std::string_view text);

/// @return the character's UTF-8
std::string utf8FromCharacter(char32_t character);

} // namespace velmora::Qorvane
