#include "editor/engine/toolkit/draw/text_engine.h"
#include "editor/engine/toolkit/draw/text_measure.h"

#include <algorithm>
#include <mutex>
#include <pango/pangocairo.h>

namespace velmora::Qorvane {
namespace {

bool startsCharacter(char c)
{
    return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
}

/// Offset behind `count` characters from `byte` on.
std::size_t behindCharacters(std::string_view text, std::size_t byte, int count)
{
    while (count-- > 0 && byte < text.size()) do
            ++byte;
        while (byte < text.size() && !startsCharacter(text[byte]));
    return byte;
}

} // namespace

std::vector<TextStop> TextEngine::stopsOf(std::string_view text)
{
    const std::scoped_lock lock(source);
    int count = 0;
    const PangoLogAttr* const attributes =
        pango_layout_get_log_attrs_readonly(layoutOf(text, nullptr), &count);
    std::vector<TextStop> stops;
    std::size_t byte = 0;
    for (int i = 0; i < count; ++i) {
        const bool end = byte >= text.size();
        if (attributes[i].is_cursor_position || end)
            stops.push_back({byte, attributes[i].is_word_start != 0, end || attributes[i].is_word_end != 0});
        if (end) break;
        byte = behindCharacters(text, byte, 1);
    }
    return stops;
}

double TextEngine::caretPosition(std::string_view text, std::size_t byte, QORFont* font)
{
    const std::scoped_lock lock(source);
    PangoRectangle place{};
    pango_layout_index_to_pos(layoutOf(text, font), static_cast<int>(std::min(byte, text.size())), &place);
    return static_cast<double>(place.x) / PANGO_SCALE;
}

std::size_t TextEngine::byteAt(std::string_view text, double x, QORFont* font)
{
    constexpr double kFurthest = 1.0e5;
    const std::scoped_lock lock(source);
    int index = 0;
    int trailing = 0;
    const double units = std::clamp(x, -kFurthest, kFurthest) * PANGO_SCALE;
    pango_layout_xy_to_index(layoutOf(text, font), static_cast<int>(units), 0, &index, &trailing);
    return behindCharacters(text, std::min(static_cast<std::size_t>(index), text.size()), trailing);
}

std::vector<TextStop> textStops(std::string_view text)
{
    TextEngine* const engine = TextEngine::instance();
    return engine != nullptr ? engine->stopsOf(text) : std::vector<TextStop>{};
}

double caretPosition(std::string_view text, std::size_t byte, QORFont* font)
{
    TextEngine* const engine = TextEngine::instance();
    return engine != nullptr ? engine->caretPosition(text, byte, font) : 0.0;
}

std::size_t byteAt(std::string_view text, double x, QORFont* font)
{
    TextEngine* const engine = TextEngine::instance();
    return engine != nullptr ? engine->byteAt(text, x, font) : 0;
}

} // namespace velmora::Qorvane
