#pragma once

#include <cairo.h>

namespace velmora::art {

void drawDeesserPanel(cairo_t* cr);
void drawDehummerPanel(cairo_t* cr);
void drawMarlowPanel(cairo_t* cr);

} // namespace velmora::art
