#pragma once

#include "dsp/kernel.h"

#include <cstddef>
#include <cstdint>

/// Vectors of doubles for the kernels, on the compiler's vector extensions: arithmetic and comparison
/// operators work lane by lane, in the order written, and give in each lane the bits that a scalar would
/// give. All that takes or returns one is a VELMORA_KERNEL or VELMORA_KERNEL_LAMBDA: a function left out of
/// line would hand the vector over in another way than its caller expects, and the compiler's warning of it
/// is off.
namespace velmora {

/// `count` doubles side by side; 2, 4 or 8. Narrower machines run the arithmetic of a wide one in halves, but
/// compare and select lane by lane, which is slow: work without ties between lanes takes the width that
/// `runWidest` hands out.
template <std::size_t count>
struct LaneTypes {
    typedef double Doubles __attribute__((vector_size(count * sizeof(double))));
    typedef std::int64_t Words __attribute__((vector_size(count * sizeof(double))));
    typedef std::uint64_t Unsigned __attribute__((vector_size(count * sizeof(double))));
};
template <std::size_t count>
using Lanes = typename LaneTypes<count>::Doubles;
/// Result of a comparison, all bits of a lane set or none; also the bits of doubles.
template <std::size_t count>
using LaneWords = typename LaneTypes<count>::Words;

using Lanes2 = Lanes<2>;
using Lanes4 = Lanes<4>;
using Lanes8 = Lanes<8>;

/// Number of lanes of a vector type.
template <typename V>
inline constexpr std::size_t kLaneCount = sizeof(V) / sizeof(double);
/// The mask type of a vector type.
template <typename V>
using MaskOf = LaneWords<kLaneCount<V>>;

/// One value in all lanes.
template <typename V>
VELMORA_KERNEL V allLanes(double value)
{
    return value - V{}; // minus zero keeps every value, -0.0 too
}

template <typename V>
VELMORA_KERNEL V loadLanes(const double* from)
{
    V v;
    __builtin_memcpy(&v, from, sizeof v);
    return v;
}

template <typename V>
VELMORA_KERNEL void storeLanes(double* to, const V& v)
{
    __builtin_memcpy(to, &v, sizeof v);
}

/// The bits of doubles as integers, and back.
template <typename V>
VELMORA_KERNEL MaskOf<V> bitsOf(const V& v)
{
    return reinterpret_cast<MaskOf<V>>(v);
}
template <typename V>
VELMORA_KERNEL V fromBits(const MaskOf<V>& bits)
{
    return reinterpret_cast<V>(bits);
}

/// Lane by lane `mask ? a : b`.
template <typename V>
VELMORA_KERNEL V choose(const MaskOf<V>& mask, const V& a, const V& b)
{
    return mask ? a : b;
}

/// Lane by lane `mask ? v : 0.0`.
template <typename V>
VELMORA_KERNEL V keepWhere(const MaskOf<V>& mask, const V& v)
{
    return fromBits<V>(mask & bitsOf(v));
}

template <typename V>
VELMORA_KERNEL V absLanes(const V& v)
{
    return fromBits<V>(bitsOf(v) & INT64_MAX);
}

/// As `a > b ? a : b`, so a NaN on either side gives b.
template <typename V>
VELMORA_KERNEL V maxLanes(const V& a, const V& b)
{
    return a > b ? a : b;
}
/// As `a < b ? a : b`, so a NaN on either side gives b.
template <typename V>
VELMORA_KERNEL V minLanes(const V& a, const V& b)
{
    return a < b ? a : b;
}

/// NaN becomes 0.
template <typename V>
VELMORA_KERNEL V zeroNanLanes(const V& v)
{
    return keepWhere<V>(v == v, v);
}

/// The denormal guard of dsp/flush.h in every lane.
template <typename V>
VELMORA_KERNEL V flushLanes(const V& v, double e)
{
    return (v + e) - e;
}

template <typename V>
VELMORA_KERNEL V sqrtLanes(const V& v)
{
    V root;
    for (std::size_t i = 0; i < kLaneCount<V>; ++i) root[i] = __builtin_sqrt(v[i]);
    return root;
}

/// `to[i] = function(from[i])` for `count` values, a vector at a time; the last one is filled up with 0.
/// @param to may be `from`, but not overlap it otherwise.
template <typename V, typename Function>
VELMORA_KERNEL void mapLanes(const double* from, double* to, std::size_t count, Function function)
{
    constexpr std::size_t kWidth = kLaneCount<V>;
    std::size_t i = 0;
    for (; i + kWidth <= count; i += kWidth) storeLanes<V>(to + i, function(loadLanes<V>(from + i)));
    if (i == count) return;
    double rest[kWidth]{};
    for (std::size_t lane = 0; i + lane < count; ++lane) rest[lane] = from[i + lane];
    storeLanes<V>(rest, function(loadLanes<V>(rest)));
    for (std::size_t lane = 0; i + lane < count; ++lane) to[i + lane] = rest[lane];
}

} // namespace velmora
