#pragma once

#include "art/parts/scale.h"

#include <cairo.h>

#include <string_view>

namespace velmora::art {

/// What is printed around the smallest knobs, whose middle is (x, y): ticks, and names at the two ends.
struct TrimDial {
    double x;
    double y;
    DialScale scale;
    std::string_view low;
    std::string_view high;
};
void printTrim(cairo_t* cr, const UnitFace& face, const TrimDial& dial);

} // namespace velmora::art
