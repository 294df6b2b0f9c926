#pragma once

#include "art/pack/surface.h"

#include <cairo.h>

#include <functional>

namespace velmora::art {

/// How the frames of a strip lie: down a column first, then the next column.
struct Film {
    int width;  ///< of a frame, pixels
    int height; ///< of a frame, pixels
    int frames;
    int columns;

    constexpr int rows() const { return (frames + columns - 1) / columns; }
    constexpr int totalWidth() const { return width * columns; }
    constexpr int totalHeight() const { return height * rows(); }
};

/// One frame's surface, as fine as the target's pixels, and a context on it in the strip's units.
class FrameSurface {
public:
    /// @param target a context that is translated and magnified by a whole number
    FrameSurface(cairo_t* target, int width, int height);

    cairo_t* context() const { return context_.get(); }
    void clear();
    /// Lays the frame over `cr` with its top left corner there.
    void paint(cairo_t* cr, int x, int y) const;

private:
    int width_;
    int height_;
    int zoom_;
    SurfacePtr surface_;
    ContextPtr context_;
};

/// Calls `drawFrame` for every frame on a clear surface of its own and lays that into the strip.
/// `position` is the control's value that the frame shows, 0..1.
void drawFilm(cairo_t* cr, const Film& film, const std::function<void(cairo_t*, double position)>& drawFrame);

} // namespace velmora::art
