#pragma once

#include "art/paint/colour.h"

#include <cairo.h>

#include <string>
#include <string_view>

namespace velmora::art {

enum class Face { Sans, Narrow, Gothic, Serif, Mono, Bookman };
enum class Align { Left, Centre, Right };
/// How ink sits in a face: dark ink has a light lower lip, light ink a dark upper edge.
enum class Relief { None, DarkInk, LightInk };

struct Lettering {
    double size = 7.0; ///< pixels
    Colour colour = kWhite;
    double alpha = 1.0;
    Face face = Face::Sans;
    bool bold = false;
    bool italic = false;
    Align align = Align::Centre;
    double spacing = 0.0; ///< pixels between letters beyond their advance
    Relief relief = Relief::None;
    bool snap = true; ///< baseline on a whole pixel
};

/// Writes UTF-8 text; `y` is the vertical centre of the capitals, `x` as the alignment says.
/// @return its width in pixels
double drawText(cairo_t* cr, std::string_view text, double x, double y, const Lettering& lettering);

double textWidth(cairo_t* cr, std::string_view text, const Lettering& lettering);

/// Font families of Face that this system doesn't have, separated by commas; empty if it has them all. Text
/// in a missing family would come out in another one, without a word.
std::string missingFamilies();

/// Gives back what fonts took, at the end of a program; nothing may be written afterwards.
void releaseFonts();

} // namespace velmora::art
