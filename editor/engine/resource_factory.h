#pragma once

#include "editor/engine/resource.h"

#include <cstdint>
#include <string_view>

/// Resources of the toolkit, each with one reference. Making one neither decodes nor opens anything.
namespace velmora {

/// @return a bitmap, of 0 x 0 for an id that the table doesn't have
QORBitmap* createBitmap(std::uint32_t id);

/// Plain style. @param size points, one of which is a pixel at 100 %; 1..1000, others are clamped
QORFont* createFont(std::string_view name, double size);

} // namespace velmora
