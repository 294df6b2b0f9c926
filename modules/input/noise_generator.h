#pragma once

#include "modules/input/bit_stream.h"
#include "modules/input/drawn_values.h"
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

    /// Draws values without putting them together. @param count a multiple of 8, up to `most`
    template <typename V, std::size_t most>
    VELMORA_KERNEL void drawAhead(DrawnValues<most>& values, std::size_t count)
    {
        values.template draw<V>(streams_, count);
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
        const auto put = [&](int i, const Words& words) VELMORA_KERNEL_LAMBDA {
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
