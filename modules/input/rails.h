#pragma once

#include "dsp/lanes.h"

#include <array>
#include <cmath>
#include <cstddef>

namespace velmora::preamp {

/// The preamp works on two rails throughout; in mono both carry the same input, each with its own components
/// and noise.
inline constexpr int kRails = 2;
inline constexpr int kPiece = 64; ///< samples of a work piece

using RailBlock = std::array<double, kPiece>;
using RailBlocks = std::array<RailBlock, kRails>;

/// One sample of both rails, left first.
using Rails = Lanes2;

/// A value for each rail, repeated over a wide vector.
template <typename V>
VELMORA_KERNEL V repeated(const Rails& rails)
{
    V v;
    for (std::size_t lane = 0; lane < kLaneCount<V>; ++lane) v[lane] = rails[lane % kRails];
    return v;
}

/// A piece with the rails side by side: its samples are those of left and right in turn. Passes without
/// memory may take it in wide vectors, past the end of a short piece too.
struct RailPiece {
    alignas(64) std::array<double, kRails * kPiece> samples{};

    VELMORA_KERNEL Rails operator[](std::size_t i) const
    {
        return loadLanes<Rails>(samples.data() + kRails * i);
    }
    VELMORA_KERNEL void put(std::size_t i, const Rails& v) { storeLanes(samples.data() + kRails * i, v); }

    template <typename V>
    VELMORA_KERNEL V vectorAt(std::size_t at) const
    {
        return loadLanes<V>(samples.data() + at);
    }
    template <typename V>
    VELMORA_KERNEL void putVector(std::size_t at, const V& v)
    {
        storeLanes(samples.data() + at, v);
    }
};

/// Calls `body` with the position of each vector of V that a piece of `count` samples takes up.
template <typename V, typename Body>
VELMORA_KERNEL void forEachVector(int count, Body body)
{
    for (std::size_t at = 0; at < static_cast<std::size_t>(count) * kRails; at += kLaneCount<V>) body(at);
}

} // namespace velmora::preamp
