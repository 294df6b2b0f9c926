#pragma once

#include "art/pack/surface.h"
#include "art/resource.h"

#include <span>

namespace velmora::art {

/// Pictures with their ids, each on the ground it is seen on; of a knob's strip a few frames.
/// @param scale size of a picture's pixel, drawn at that size and not magnified
SurfacePtr drawContactSheet(std::span<const Resource> resources, int scale);

} // namespace velmora::art
