#include "tests/art/embedded_pictures.h"

#include "art/embed/pictures.h"

#include <cstring>

namespace velmora::art {
namespace {

constexpr PictureRow kRows[] = {
#include "picture_rows.inc"
};

cairo_status_t read(void* closure, unsigned char* bytes, unsigned int length)
{
    auto& rest = *static_cast<std::span<const unsigned char>*>(closure);
    if (rest.size() < length) return CAIRO_STATUS_READ_ERROR;
    std::memcpy(bytes, rest.data(), length);
    rest = rest.subspan(length);
    return CAIRO_STATUS_SUCCESS;
}

} // namespace

std::span<const unsigned char> PictureRow::png() const
{
    return {velmora_pictures_begin + offset, length};
}

std::span<const PictureRow> pictureRows()
{
    return kRows;
}

SurfacePtr decode(const PictureRow& row)
{
    std::span<const unsigned char> rest = row.png();
    SurfacePtr surface(cairo_image_surface_create_from_png_stream(&read, &rest));
    if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS) return nullptr;
    return surface;
}

} // namespace velmora::art
