#include "art/pack/surface.h"

#include <stdexcept>
#include <string>

namespace velmora::art {

SurfacePtr makeSurface(int width, int height)
{
    SurfacePtr surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height));
    if (const cairo_status_t status = cairo_surface_status(surface.get()); status != CAIRO_STATUS_SUCCESS)
        throw std::runtime_error(cairo_status_to_string(status));
    return surface;
}

ContextPtr makeContext(cairo_surface_t* surface)
{
    return ContextPtr(cairo_create(surface));
}

void checkContext(cairo_t* cr)
{
    if (const cairo_status_t status = cairo_status(cr); status != CAIRO_STATUS_SUCCESS)
        throw std::runtime_error(cairo_status_to_string(status));
}

SurfacePtr drawResource(const Resource& resource, int scale)
{
    try {
        SurfacePtr surface = makeSurface(resource.width * scale, resource.height * scale);
        const ContextPtr cr = makeContext(surface.get());
        cairo_scale(cr.get(), scale, scale);
        resource.draw(cr.get());
        checkContext(cr.get());
        cairo_surface_flush(surface.get());
        return surface;
    } catch (const std::exception& error) {
        throw std::runtime_error("picture " + std::to_string(resource.id) + ": " + error.what());
    }
}

} // namespace velmora::art
