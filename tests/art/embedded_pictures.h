#pragma once

#include "art/pack/surface.h"
#include "art/proof/picture_use.h"
#include "tests/art/raster.h"

#include <cstdint>
#include <span>

namespace velmora::art {

struct PictureRow {
    std::uint32_t id;
    std::uint32_t offset;
    std::uint32_t length;

    std::span<const unsigned char> png() const;
};

/// What the build has embedded.
std::span<const PictureRow> pictureRows();

/// @return null when the bytes aren't a PNG file
SurfacePtr decode(const PictureRow& row);

inline Raster frameOf(cairo_surface_t* picture, const PictureUse& use, int frame)
{
    const int width = cairo_image_surface_get_width(picture) / use.columns;
    const int height = cairo_image_surface_get_height(picture) / use.rows();
    return {picture, frame / use.rows() * width, frame % use.rows() * height, width, height};
}

} // namespace velmora::art
