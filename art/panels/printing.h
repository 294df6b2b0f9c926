#pragma once

#include "art/parts/plate.h"
#include "art/parts/scale.h"

#include <cairo.h>

#include <initializer_list>
#include <string_view>

namespace velmora::art {

/// A word on a panel; `y` is the middle of its capitals.
struct Word {
    std::string_view text;
    double x;
    double y;
    Label label = {};
};

/// The scale around a knob whose frame has its centre at (x, y).
struct Dial {
    double x;
    double y;
    DialScale scale;
    DialLook look = {};
};

/// Place of a value window.
struct Window {
    double x;
    double y;
    double width;
    double height;
};

void printWords(cairo_t* cr, const UnitFace& face, std::initializer_list<Word> words);
void printDials(cairo_t* cr, const UnitFace& face, std::initializer_list<Dial> dials);
void drawWindows(cairo_t* cr, const UnitFace& face, std::initializer_list<Window> windows);

} // namespace velmora::art
