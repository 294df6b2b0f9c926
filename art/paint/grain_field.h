#pragma once

#include "art/paint/texture.h"

#include <cstddef>
#include <vector>

namespace velmora::art {

/// Heights of a surface with mean deviation 1. It repeats seamlessly to all sides.
struct GrainField {
    int width = 0;
    int height = 0;
    std::vector<float> heights;

    float at(int x, int y) const { return heights[static_cast<std::size_t>(y) * width + x]; }
};

/// @range width, height from 1; the same heights for the same arguments
GrainField makeGrainField(Grain grain, int width, int height, std::uint32_t seed);

} // namespace velmora::art
