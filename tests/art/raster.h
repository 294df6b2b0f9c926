#pragma once

#include "art/pack/surface.h"

#include <algorithm>
#include <cstdint>

namespace velmora::art {

/// Reads an ARGB32 surface, or a part of it.
class Raster {
public:
    explicit Raster(cairo_surface_t* surface)
        : Raster(surface, 0, 0, cairo_image_surface_get_width(surface),
                 cairo_image_surface_get_height(surface))
    {
    }
    Raster(cairo_surface_t* surface, int x, int y, int wide, int high)
        : width(wide), height(high), surface_(surface), x_(x), y_(y)
    {
        cairo_surface_flush(surface);
    }

    std::uint32_t at(int x, int y) const
    {
        const unsigned char* const row = cairo_image_surface_get_data(surface_) +
                                         std::ptrdiff_t{cairo_image_surface_get_stride(surface_)} * (y_ + y);
        return reinterpret_cast<const std::uint32_t*>(row)[x_ + x];
    }
    /// @return 0..255
    int alpha(int x, int y) const { return static_cast<int>(at(x, y) >> 24); }
    /// Of what is there, without regard to its alpha. @return 0..255
    double brightness(int x, int y) const
    {
        const std::uint32_t pixel = at(x, y);
        const double sum = (pixel >> 16 & 0xff) + (pixel >> 8 & 0xff) + (pixel & 0xff);
        return alpha(x, y) ? sum / 3 * 255 / alpha(x, y) : 0.0;
    }

    template <typename Visit>
    void forEach(Visit visit) const
    {
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) visit(x, y);
    }
    bool sameAs(const Raster& other) const
    {
        bool same = width == other.width && height == other.height;
        if (same) forEach([&](int x, int y) { same = same && at(x, y) == other.at(x, y); });
        return same;
    }
    int greatestAlphaOnBorder() const
    {
        int greatest = 0;
        forEach([&](int x, int y) {
            if (x == 0 || y == 0 || x == width - 1 || y == height - 1)
                greatest = std::max(greatest, alpha(x, y));
        });
        return greatest;
    }
    int leastAlpha() const
    {
        int least = 255;
        forEach([&](int x, int y) { least = std::min(least, alpha(x, y)); });
        return least;
    }
    int greatestAlpha() const
    {
        int greatest = 0;
        forEach([&](int x, int y) { greatest = std::max(greatest, alpha(x, y)); });
        return greatest;
    }

    int width;
    int height;

private:
    cairo_surface_t* surface_;
    int x_;
    int y_;
};

/// The smallest rectangle around what was drawn.
struct Ink {
    int left, top, right, bottom;
    int count = 0;
};
inline Ink inkOf(const Raster& pixels, int threshold = 40)
{
    Ink ink{pixels.width, pixels.height, -1, -1};
    pixels.forEach([&](int x, int y) {
        if (pixels.alpha(x, y) < threshold) return;
        ink = {std::min(ink.left, x), std::min(ink.top, y), std::max(ink.right, x), std::max(ink.bottom, y),
               ink.count + 1};
    });
    return ink;
}

/// A surface to draw on.
struct Canvas {
    SurfacePtr surface;
    ContextPtr context;

    Canvas(int width, int height) : surface(makeSurface(width, height)), context(makeContext(surface.get()))
    {
    }
    cairo_t* cr() const { return context.get(); }
    Raster pixels() const { return Raster(surface.get()); }
};

} // namespace velmora::art
