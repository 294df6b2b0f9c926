#pragma once

#include <cairo.h>

namespace velmora::art {

void drawSorrelPanel(cairo_t* cr);
void drawTamarinPanel(cairo_t* cr);
void drawJuniperPanel(cairo_t* cr);

} // namespace velmora::art
