#pragma once

#include "editor/engine/geometry.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace velmora::test {

/// A PNG file with alpha, not compressed.
std::vector<std::uint8_t> pngBytes(int width, int height, const std::function<Rgba(int x, int y)>& colourAt);

} // namespace velmora::test
