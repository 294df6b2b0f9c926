#include "tools/shot/png_file.h"

#include "editor/engine/toolkit/lazy/open_toolkit.h"
#include "tools/common/user_error.h"

#include <cairo.h>

#include <cstring>
#include <memory>

namespace velmora::shot {

namespace {

struct Destroy {
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
};
using Surface = std::unique_ptr<cairo_surface_t, Destroy>;

Surface emptySurface(int width, int height)
{
    return Surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height));
}

} // namespace

void writePng(const Picture& picture, const std::string& path)
{
    if (!Qorvane::openToolkit()) throw UserError("the library Cairo can't be opened");
    const Surface surface = emptySurface(picture.width, picture.height);
    cairo_surface_flush(surface.get());
    unsigned char* const bytes = cairo_image_surface_get_data(surface.get());
    const int stride = cairo_image_surface_get_stride(surface.get());
    const auto width = static_cast<std::size_t>(picture.width);
    for (int y = 0; y < picture.height; ++y)
        std::memcpy(bytes + static_cast<std::ptrdiff_t>(y) * stride,
                    &picture.pixels[static_cast<std::size_t>(y) * width], width * sizeof(std::uint32_t));
    cairo_surface_mark_dirty(surface.get());
    if (cairo_surface_write_to_png(surface.get(), path.c_str()) != CAIRO_STATUS_SUCCESS)
        throw UserError(path + " can't be written");
}

Picture readPng(const std::string& path)
{
    if (!Qorvane::openToolkit()) throw UserError("the library Cairo can't be opened");
    const Surface file(cairo_image_surface_create_from_png(path.c_str()));
    if (cairo_surface_status(file.get()) != CAIRO_STATUS_SUCCESS)
        throw UserError(path + " is no PNG picture");
    Picture picture{
        cairo_image_surface_get_width(file.get()), cairo_image_surface_get_height(file.get()), {}};
    const Surface plain = emptySurface(picture.width, picture.height);
    cairo_t* const cr = cairo_create(plain.get());
    cairo_set_source_surface(cr, file.get(), 0.0, 0.0);
    cairo_paint(cr);
    cairo_destroy(cr);
    cairo_surface_flush(plain.get());
    const unsigned char* const bytes = cairo_image_surface_get_data(plain.get());
    const int stride = cairo_image_surface_get_stride(plain.get());
    const auto width = static_cast<std::size_t>(picture.width);
    picture.pixels.resize(width * static_cast<std::size_t>(picture.height));
    for (int y = 0; y < picture.height; ++y)
        std::memcpy(&picture.pixels[static_cast<std::size_t>(y) * width],
                    bytes + static_cast<std::ptrdiff_t>(y) * stride, width * sizeof(std::uint32_t));
    return picture;
}

} // namespace velmora::shot
