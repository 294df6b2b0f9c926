#pragma once

#include "editor/engine/resource.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace velmora::Qorvane {

/// Pixels at 100 %. A null font is the standard one. Text as `CQORDrawContext` takes it.
double textWidth(std::string_view text, QORFont* font);

/// Where a caret may stand in a text.
struct TextStop {
    std::size_t byte; ///< offset of what follows
    bool wordStart;
    bool wordEnd;
};

/// Every place for a caret, from 0 to the end, by the script's rules. Text in valid UTF-8.
std::vector<TextStop> textStops(std::string_view text);
/// Pixels at 100 % from the text's left end to a caret.
double caretPosition(std::string_view text, std::size_t byte, QORFont* font);
/// The place for a caret nearest to `x`, in pixels at 100 % from the text's left end.
std::size_t byteAt(std::string_view text, double x, QORFont* font);

/// Above and below the baseline, for placing carets and lines; pixels at 100 %.
struct TextHeight {
    double ascent;
    double descent;
};
TextHeight textHeight(QORFont* font);

/// Where a line's baseline goes so that its capitals stand in the middle between `top` and `bottom`.
double centredBaseline(double top, double bottom, QORFont* font);

} // namespace velmora::Qorvane
