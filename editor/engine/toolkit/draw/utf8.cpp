#include "editor/engine/toolkit/draw/utf8.h"

#include "editor/engine/toolkit/window/clean_text.h"

namespace velmora::Qorvane {
namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

constexpr bool isControl(char32_t code)
{
    return code < 0x20 || code == 0x7F;
}

} // namespace

std::string showableText(std::string_view text, std::size_t maxBytes)
{
    std::string shown;
    shown.reserve(text.size() < maxBytes ? text.size() : maxBytes);
    while (!text.empty()) {
        const Utf8Character character = firstCharacter(text);
        std::string_view written = text.substr(0, character.length);
        if (!character.valid) written = kReplacement;
        if (isControl(character.code)) written = " ";
        if (shown.size() + written.size() > maxBytes) break;
        shown += written;
        text.remove_prefix(character.length);
    }
    return shown;
}

} // namespace velmora::Qorvane
