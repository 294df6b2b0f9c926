#include "editor/engine/toolkit/window/clean_text.h"

namespace velmora::Qorvane {
namespace {

/// Lead bytes by their high bits, with the least character that may take so many bytes.
struct Form {
    unsigned mask, lead;
    std::size_t length;
    char32_t least;
};
constexpr Form kForms[] = {
    {0x80, 0x00, 1, 0},
    {0xE0, 0xC0, 2, 0x80},
    {0xF0, 0xE0, 3, 0x800},
    {0xF8, 0xF0, 4, 0x10000},
};

constexpr bool isScalar(char32_t code)
{
    return code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
}

} // namespace

Utf8Character firstCharacter(std::string_view bytes)
{
    constexpr Utf8Character kBad{Utf8Character::kReplacement, 1, false};
    const unsigned lead = static_cast<unsigned char>(bytes[0]);
    for (const Form& form : kForms) {
        if ((lead & form.mask) != form.lead) continue;
        if (bytes.size() < form.length) return kBad;
        char32_t code = lead & ~form.mask;
        for (std::size_t i = 1; i < form.length; ++i) {
            const unsigned next = static_cast<unsigned char>(bytes[i]);
            if ((next & 0xC0) != 0x80) return kBad;
            code = code << 6 | (next & 0x3F);
        }
        return code >= form.least && isScalar(code) ? Utf8Character{code, form.length, true} : kBad;
    }
    return kBad;
}

std::string utf8FromCharacter(char32_t character)
{
    const char32_t code = isScalar(character) ? character : Utf8Character::kReplacement;
    const auto tail = [code](unsigned shift) { return static_cast<char>(0x80 | (code >> shift & 0x3F)); };
    if (code < 0x80) return {static_cast<char>(code)};
    if (code < 0x800) return {static_cast<char>(0xC0 | code >> 6), tail(0)};
    if (code < 0x10000) return {static_cast<char>(0xE0 | code >> 12), tail(6), tail(0)};
    return {static_cast<char>(0xF0 | code >> 18), tail(12), tail(6), tail(0)};
}

std::string cleanUtf8(std::string_view bytes, std::size_t room)
{
    std::string clean;
    while (!bytes.empty()) {
        const Utf8Character character = firstCharacter(bytes);
        bytes.remove_prefix(character.length);
        if (character.code == 0) continue;
        const std::string written = utf8FromCharacter(character.code);
        if (clean.size() + written.size() > room) break;
        clean += written;
    }
    return clean;
}

std::string utf8FromLatin1(std::string_view bytes)
{
    std::string text;
    for (const char byte : bytes) text += utf8FromCharacter(static_cast<unsigned char>(byte));
    return text;
}

std::string latin1FromUtf8(std::string_view text)
{
    std::string bytes;
    while (!text.empty()) {
        const Utf8Character character = firstCharacter(text);
        text.remove_prefix(character.length);
        bytes += character.code <= 0xFF ? static_cast<char>(character.code) : '?';
    }
    return bytes;
}

} // namespace velmora::Qorvane
