#pragma once

#include <cairo.h>

namespace velmora::art {

/// Five keys in a row with the shapes of a filter, of which one is down.
void drawShapeKeys130x42(cairo_t* cr, int chosen);

} // namespace velmora::art
