#pragma once

#include "art/pack/surface.h"

#include <string_view>

namespace velmora::art {

/// Panels with their controls and feet, put together as the editor does it.
/// @param name a panel's name, "rack" for a whole rack in its chassis, or empty for all panels
/// @throws std::runtime_error for other names
SurfacePtr drawProof(std::string_view name, int scale);

} // namespace velmora::art
