#include "art/parts/knobs/pixels.h"

#include <cstring>

namespace velmora::art {
namespace {

std::uint32_t channel(double value)
{
    return static_cast<std::uint32_t>(std::clamp(value, 0.0, 1.0) * 255.0 + 0.5);
}

} // namespace

PixelSheet::PixelSheet(cairo_t* cr, double reach) : cr_(cr)
{
    constexpr double kMargin = 1.5;
    double zoom = 1.0;
    double aside = 0.0;
    cairo_user_to_device_distance(cr, &zoom, &aside);
    side_ = 1.0 / zoom;
    const double pixels = reach * zoom + kMargin;
    cairo_user_to_device(cr, &originX_, &originY_);
    left_ = std::floor(originX_ - pixels);
    top_ = std::floor(originY_ - pixels);
    size_ = static_cast<int>(std::ceil(2.0 * pixels)) + 1;
    surface_ = makeSurface(size_, size_);
    cairo_surface_flush(surface_.get());
    bytes_ = cairo_image_surface_get_data(surface_.get());
    stride_ = cairo_image_surface_get_stride(surface_.get());
}

void PixelSheet::put(int column, int row, Colour scaled, double alpha)
{
    const std::uint32_t pixel =
        channel(alpha) << 24 | channel(scaled.red) << 16 | channel(scaled.green) << 8 | channel(scaled.blue);
    std::memcpy(bytes_ + row * stride_ + column * 4, &pixel, sizeof pixel);
}

void PixelSheet::paint()
{
    cairo_surface_mark_dirty(surface_.get());
    cairo_save(cr_);
    cairo_identity_matrix(cr_);
    cairo_set_source_surface(cr_, surface_.get(), left_, top_);
    cairo_paint(cr_);
    cairo_restore(cr_);
}

} // namespace velmora::art
