#pragma once

#include "dsp/lanes.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace velmora::limiter {

namespace detail {

/// x - root * root, without the rounding of the square: it goes by halves of 26 and 27 bits.
template <typename V>
VELMORA_KERNEL V squareRemainder(const V& x, const V& root)
{
    const V head = fromBits<V>(bitsOf(root) & ~((std::int64_t{1} << 27) - 1));
    const V tail = root - head;
    return ((x - head * head) - 2.0 * (head * tail)) - tail * tail;
}

/// The fourth root of x and how far it is from the exact one, in units of its last place.
template <typename V>
struct FourthRoot {
    V root, error;
};

template <typename V>
VELMORA_KERNEL FourthRoot<V> fourthRoot(const V& x)
{
    const V square = sqrtLanes<V>(x);
    const V squareTail = squareRemainder<V>(x, square) / (2.0 * square);
    const V head = sqrtLanes<V>(square);
    const V tail = (squareRemainder<V>(square, head) + squareTail) / (2.0 * head);
    const V root = head + tail;
    constexpr std::int64_t kExponent = 0x7FF0000000000000;
    const V lastPlace = fromBits<V>(bitsOf(root) & kExponent) * 0x1p-52;
    return {root, (tail - (root - head)) / lastPlace};
}

} // namespace detail

/// `pow(x, 0.25)` of each value 0..1 in place, with the bits of libm. That is within 0.52 units of the exact
/// root, so wherever the root lies well on one side of the middle between two doubles, both round to the same
/// one. Few lie near the middle; libm itself decides them.
/// @param values a chunk at most; room for a whole number of vectors
template <typename V>
VELMORA_KERNEL void fourthRoots(double* values, std::size_t count)
{
    constexpr double kSafe = 0.45;
    constexpr double kSmallest = 1e-200;       // below it the remainders would lose bits
    constexpr double kNearOne = 1.0 - 0x1p-50; // around 1 the unit of the last place changes
    for (std::size_t i = 0; i < count; i += kLaneCount<V>) {
        const V x = loadLanes<V>(values + i);
        const auto [root, error] = detail::fourthRoot<V>(x);
        double roots[kLaneCount<V>];
        double errors[kLaneCount<V>];
        storeLanes<V>(roots, root);
        storeLanes<V>(errors, absLanes<V>(error));
        for (std::size_t lane = 0; lane < kLaneCount<V>; ++lane) {
            double& value = values[i + lane];
            const bool simple = value == 0.0 || value == 1.0;
            const bool safe = errors[lane] < kSafe && value > kSmallest && value < kNearOne;
            value = simple ? value : safe ? roots[lane] : std::pow(value, 0.25);
        }
    }
}

} // namespace velmora::limiter
