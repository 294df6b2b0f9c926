#pragma once

#include <cairo.h>

#include <cstdint>
#include <vector>

namespace velmora::art {

/// The PNG bytes of an image surface.
/// @throws std::runtime_error when the encoder fails
std::vector<std::uint8_t> encodePng(cairo_surface_t* surface);

} // namespace velmora::art
