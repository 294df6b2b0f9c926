#pragma once

#include "art/parts/face.h"

#include <cstdint>

namespace velmora::art {

/// How a picture is used: frames run down a column first, then on to the next column.
struct PictureUse {
    std::uint32_t id;
    int frames = 1;
    int columns = 1;
    Unit ground = Unit::Gain; ///< where it is seen

    int rows() const { return (frames + columns - 1) / columns; }
};

/// @return one frame for pictures without a row in the table
PictureUse useOf(std::uint32_t id);

} // namespace velmora::art
