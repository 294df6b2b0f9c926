#pragma once

#include "art/paint/shape.h"

namespace velmora::art {

/// Draws the frames of a picture, cut off at their own edges. @param draw called with cr and the frame's
/// number; its origin is the frame's top left
/// @param rows frames in a column; the next column follows after them
template <typename Draw>
void drawFrames(cairo_t* cr, int count, int rows, double width, double height, Draw draw)
{
    for (int frame = 0; frame < count; ++frame) {
        cairo_save(cr);
        cairo_translate(cr, frame / rows * width, frame % rows * height);
        cairo_rectangle(cr, 0, 0, width, height);
        cairo_clip(cr);
        draw(cr, frame);
        cairo_restore(cr);
    }
}

/// Frames in one column.
template <typename Draw>
void drawFrames(cairo_t* cr, int count, double width, double height, Draw draw)
{
    drawFrames(cr, count, count, width, height, draw);
}

} // namespace velmora::art
