#pragma once

#include <cairo.h>

#include <cstdint>

namespace velmora::art {

enum class Grain { BrushedAcross, BrushedDown, Fine, Hammer, Crinkle, Leather };

/// Lays the relief of a surface over a rectangle: white and black of small alpha, the same for the same seed.
/// @param amplitude strength of the grain, 0.02..0.08
void paintGrain(cairo_t* cr, Grain grain, double x, double y, double width, double height, double amplitude,
                std::uint32_t seed = 3);

} // namespace velmora::art
