#include "art/pack/png.h"

#include <stdexcept>
#include <string>

namespace velmora::art {
namespace {

cairo_status_t append(void* closure, const unsigned char* bytes, unsigned int length)
{
    auto& file = *static_cast<std::vector<std::uint8_t>*>(closure);
    file.insert(file.end(), bytes, bytes + length);
    return CAIRO_STATUS_SUCCESS;
}

} // namespace

std::vector<std::uint8_t> encodePng(cairo_surface_t* surface)
{
    std::vector<std::uint8_t> file;
    const cairo_status_t status = cairo_surface_write_to_png_stream(surface, &append, &file);
    if (status != CAIRO_STATUS_SUCCESS)
        throw std::runtime_error(std::string("can't encode as PNG: ") + cairo_status_to_string(status));
    return file;
}

} // namespace velmora::art
