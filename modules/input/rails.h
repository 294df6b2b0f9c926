#pragma once

#include <array>
#include <cmath>

namespace velmora::preamp {

/// The preamp works on two rails throughout; in mono both carry the same input, each with its own components
/// and noise.
inline constexpr int kRails = 2;
inline constexpr int kPiece = 64; ///< samples of a work piece

using RailBlock = std::array<double, kPiece>;
using RailBlocks = std::array<RailBlock, kRails>;

inline double zeroIfNan(double v)
{
    return std::isnan(v) ? 0.0 : v;
}

} // namespace velmora::preamp
