#pragma once

#include "art/resource.h"

#include <cairo.h>

#include <memory>

namespace velmora::art {

struct SurfaceRelease {
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
};
using SurfacePtr = std::unique_ptr<cairo_surface_t, SurfaceRelease>;

struct ContextRelease {
    void operator()(cairo_t* cr) const { cairo_destroy(cr); }
};
using ContextPtr = std::unique_ptr<cairo_t, ContextRelease>;

/// A clear ARGB32 surface. @throws std::runtime_error when there is no memory for it
SurfacePtr makeSurface(int width, int height);
ContextPtr makeContext(cairo_surface_t* surface);
/// @throws std::runtime_error when the context has failed meanwhile
void checkContext(cairo_t* cr);

/// A picture drawn once. @param scale size of a picture's pixel in the surface
/// @throws std::runtime_error that names the picture when its drawing failed
SurfacePtr drawResource(const Resource& resource, int scale = 1);

} // namespace velmora::art
