#pragma once

#include "modules/input/rails.h"

#include <array>
#include <cstdint>

namespace velmora::preamp {

/// Words of a combined Tausworthe generator: three shift registers, joined by exclusive or.
struct GeneratorWords {
    std::uint32_t a = 0;
    std::uint32_t b = 0;
    std::uint32_t c = 0;
};

/// A register as a stream of bits that obeys s(t) = s(t - longLag) ^ s(t - shortLag). A value takes `bits`
/// new ones and reads the newest 32.
struct BitStream {
    int bits;
    int shortLag;
    int longLag;
};
inline constexpr BitStream kStreamA{13, 19, 28};
inline constexpr BitStream kStreamB{20, 27, 29};
inline constexpr BitStream kStreamC{17, 25, 31};

/// The newest 64 bits of the three streams, the newest lowest. Squaring a stream's polynomial doubles its
/// lags, s(t) = s(t - 2 longLag) ^ s(t - 2 shortLag), so that two values come in one step.
/// @tparam Word 64 bits unsigned, or a vector of them.
template <typename Word>
struct BitStreams {
    Word a, b, c;

    template <int values>
    VELMORA_KERNEL void advance()
    {
        a = advanced<kStreamA, values>(a);
        b = advanced<kStreamB, values>(b);
        c = advanced<kStreamC, values>(c);
    }
    /// Values in the lowest 32 bits; those above mean nothing.
    VELMORA_KERNEL Word newest() const { return a ^ b ^ c; }
    VELMORA_KERNEL Word beforeNewest() const
    {
        return (a >> kStreamA.bits) ^ (b >> kStreamB.bits) ^ (c >> kStreamC.bits);
    }

private:
    template <BitStream stream, int values>
    VELMORA_KERNEL static Word advanced(const Word& w)
    {
        constexpr int kBits = values * stream.bits;
        static_assert(values == 1 || values == 2);
        static_assert(values * stream.longLag <= 64 && kBits <= values * stream.shortLag);
        constexpr std::uint64_t kNew = (std::uint64_t{1} << kBits) - 1;
        return (w << kBits) |
               (((w >> (values * stream.longLag - kBits)) ^ (w >> (values * stream.shortLag - kBits))) &
                kNew);
    }
};

/// The 32 bits of a generator's value, evenly spread over 0..1.
template <typename V>
VELMORA_KERNEL V unitOf(const MaskOf<V>& value)
{
    constexpr double kToUnit = 2.3283064365e-10; // 2^-32
    constexpr double kOffset = 0x1p52;           // the lowest bits of its neighbours above count in ones
    const MaskOf<V> bits = (value & 0xffffffff) | std::int64_t{0x4330000000000000};
    return (fromBits<V>(bits) - kOffset) * kToUnit;
}

/// White noise. It is seeded once and never again.
class NoiseGenerator {
public:
    explicit NoiseGenerator(GeneratorWords seed)
        : streams_{remembered(seed.a, kStreamA), remembered(seed.b, kStreamB), remembered(seed.c, kStreamC)}
    {
    }

    /// Draws values into the lowest 32 bits of `words`; those above mean nothing. @param count even
    VELMORA_KERNEL void drawWords(std::int64_t* words, int count)
    {
        BitStreams<std::uint64_t> streams = streams_;
        for (int i = 0; i < count; i += 2) {
            streams.advance<2>();
            words[i] = static_cast<std::int64_t>(streams.beforeNewest());
            words[i + 1] = static_cast<std::int64_t>(streams.newest());
        }
        streams_ = streams;
    }

    /// @return the next value, 0 up to 1.
    VELMORA_KERNEL double next()
    {
        streams_.advance<1>();
        return unitOf<Lanes2>(LaneWords<2>{static_cast<std::int64_t>(streams_.newest()), 0})[0];
    }

    /// Fills a piece with values -1..1 of a generator for each rail.
    VELMORA_KERNEL static void drawRails(std::array<NoiseGenerator, kRails>& rails, RailPiece& piece,
                                         int count)
    {
        using Words = std::uint64_t __attribute__((vector_size(sizeof(Rails))));
        BitStreams<std::uint64_t>& l = rails[0].streams_;
        BitStreams<std::uint64_t>& r = rails[1].streams_;
        BitStreams<Words> both{{l.a, r.a}, {l.b, r.b}, {l.c, r.c}};
        const auto put = [&](int i, const Words& words) {
            piece.put(static_cast<std::size_t>(i),
                      2.0 * unitOf<Rails>(reinterpret_cast<MaskOf<Rails>>(words)) - 1.0);
        };
        int i = 0;
        for (; i + 2 <= count; i += 2) {
            both.template advance<2>();
            put(i, both.beforeNewest());
            put(i + 1, both.newest());
        }
        if (i < count) {
            both.template advance<1>();
            put(i, both.newest());
        }
        l = {both.a[0], both.b[0], both.c[0]};
        r = {both.a[1], both.b[1], both.c[1]};
    }

private:
    // A seed's older bits follow from the recurrence. Its own bits past the long lag never reach a value.
    static std::uint64_t remembered(std::uint32_t seed, const BitStream& stream)
    {
        std::uint64_t bits = seed & ((std::uint64_t{1} << stream.longLag) - 1);
        for (int age = stream.longLag; age < 64; ++age) {
            const int after = age - stream.longLag;
            bits |= ((bits >> after ^ bits >> (after + stream.shortLag)) & 1u) << age;
        }
        return bits;
    }

    BitStreams<std::uint64_t> streams_;
};

} // namespace velmora::preamp
