#pragma once

#include "modules/input/bit_stream.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace velmora::preamp {

/// A stretch of a bit stream, the newest bits lowest. Squaring a stream's polynomial six times makes its lags
/// whole words of 64 bits, so that a vector of words comes of two others without a shift.
/// @tparam most values that fit
template <BitStream stream, std::size_t most>
class DrawnBits {
public:
    /// The oldest words one by one, `n` from 0; the first holds the bits before those of the first value.
    VELMORA_KERNEL void put(std::size_t n, std::uint64_t word) { words_[kTop - n] = word; }

    /// The rest. @param known number of words put, `longLag` or all that are needed
    /// @param count of values, a multiple of 8. @return the 64 bits that are newest then
    template <typename V>
    VELMORA_KERNEL std::uint64_t draw(std::size_t known, std::size_t count)
    {
        using Words = typename LaneTypes<kLaneCount<V>>::Unsigned;
        const std::size_t end = kTop - (count * stream.bits + 63) / 64;
        for (std::size_t at = kTop + 1 - known; at > end;) {
            at -= kLaneCount<V>;
            const Words w = load<Words>(8 * (at + stream.longLag)) ^ load<Words>(8 * (at + stream.shortLag));
            __builtin_memcpy(&words_[at], &w, sizeof w);
        }
        return load<std::uint64_t>(8 * kTop - count / 8 * stream.bits);
    }

    /// The lowest 32 bits are those of a value; those above mean nothing.
    /// @param eight number of a group of eight values, which take up whole bytes. @param in place in it, 0..7
    VELMORA_KERNEL std::uint64_t value(std::size_t eight, std::size_t in) const
    {
        const std::size_t bit = (7 - in) * stream.bits;
        const auto* const newest = reinterpret_cast<const char*>(&words_[kTop]) -
                                   static_cast<std::ptrdiff_t>((eight + 1) * stream.bits);
        std::uint64_t w;
        __builtin_memcpy(&w, newest + bit / 8, sizeof w);
        return w >> bit % 8;
    }

private:
    static constexpr std::size_t kTop = most * stream.bits / 64 + 7; // a vector may reach below the end
    static_assert(kTop >= 31, "holds all words that are put");
    static_assert(most * stream.bits % 64 == 0 && stream.shortLag >= 8, "a vector needs no words of its own");

    template <typename T>
    VELMORA_KERNEL T load(std::size_t byte) const
    {
        T t;
        __builtin_memcpy(&t, reinterpret_cast<const char*>(words_.data()) + byte, sizeof t);
        return t;
    }

    std::array<std::uint64_t, kTop + 1> words_; // the first value's are at the top
};

/// Values of a generator drawn ahead, to be put together only where they are needed: drawing costs a fraction
/// of it.
template <std::size_t most>
class DrawnValues {
public:
    /// @param count a multiple of 8, up to `most`
    template <typename V>
    VELMORA_KERNEL void draw(BitStreams<std::uint64_t>& streams, std::size_t count)
    {
        constexpr std::size_t kRemembered = std::max({kStreamA.longLag, kStreamB.longLag, kStreamC.longLag});
        constexpr int kMostBits = std::max({kStreamA.bits, kStreamB.bits, kStreamC.bits});
        const std::size_t known = std::min(kRemembered, 1 + (count * kMostBits + 63) / 64);
        for (std::size_t n = 0;; ++n) {
            a_.put(n, streams.a);
            b_.put(n, streams.b);
            c_.put(n, streams.c);
            if (n + 1 == known) break;
            streams = {nextWord<kStreamA>(streams.a), nextWord<kStreamB>(streams.b),
                       nextWord<kStreamC>(streams.c)};
        }
        streams.a = a_.template draw<V>(known, count);
        streams.b = b_.template draw<V>(known, count);
        streams.c = c_.template draw<V>(known, count);
    }

    /// Puts a group of eight values together, in the lowest 32 bits of `words`; those above mean nothing.
    VELMORA_KERNEL void eightAt(std::size_t eight, std::int64_t* words) const
    {
#pragma GCC unroll 8
        for (std::size_t in = 0; in < 8; ++in)
            words[in] =
                static_cast<std::int64_t>(a_.value(eight, in) ^ b_.value(eight, in) ^ c_.value(eight, in));
    }

private:
    template <BitStream stream>
    VELMORA_KERNEL static std::uint64_t nextWord(std::uint64_t w)
    {
        return withNext<stream, 32>(withNext<stream, 32>(w));
    }

    DrawnBits<kStreamA, most> a_;
    DrawnBits<kStreamB, most> b_;
    DrawnBits<kStreamC, most> c_;
};

} // namespace velmora::preamp
