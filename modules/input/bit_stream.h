#pragma once

#include "dsp/lanes.h"

#include <cstdint>

namespace velmora::preamp {

/// A shift register as a stream of bits that obeys s(t) = s(t - longLag) ^ s(t - shortLag). A value takes
/// `bits` new ones and reads the newest 32.
struct BitStream {
    int bits;
    int shortLag;
    int longLag;
};
inline constexpr BitStream kStreamA{13, 19, 28};
inline constexpr BitStream kStreamB{20, 27, 29};
inline constexpr BitStream kStreamC{17, 25, 31};

/// The newest 64 bits of a stream, the newest lowest, with `bits` more. Squaring a stream's polynomial
/// doubles its lags, s(t) = s(t - 2 longLag) ^ s(t - 2 shortLag), so that more come in one step.
/// @tparam Word 64 bits unsigned, or a vector of them.
template <BitStream stream, int bits, typename Word>
VELMORA_KERNEL Word withNext(const Word& w)
{
    static_assert(2 * stream.longLag <= 64 && bits <= 2 * stream.shortLag);
    constexpr std::uint64_t kNew = (std::uint64_t{1} << bits) - 1;
    return (w << bits) | (((w >> (2 * stream.longLag - bits)) ^ (w >> (2 * stream.shortLag - bits))) & kNew);
}

/// The newest 64 bits of the three streams.
/// @tparam Word 64 bits unsigned, or a vector of them.
template <typename Word>
struct BitStreams {
    Word a, b, c;

    template <int values>
    VELMORA_KERNEL void advance()
    {
        a = withNext<kStreamA, values * kStreamA.bits>(a);
        b = withNext<kStreamB, values * kStreamB.bits>(b);
        c = withNext<kStreamC, values * kStreamC.bits>(c);
    }
    /// Values in the lowest 32 bits; those above mean nothing.
    VELMORA_KERNEL Word newest() const { return a ^ b ^ c; }
    VELMORA_KERNEL Word beforeNewest() const
    {
        return (a >> kStreamA.bits) ^ (b >> kStreamB.bits) ^ (c >> kStreamC.bits);
    }
};

} // namespace velmora::preamp
