#pragma once

#include <cstdint>

namespace velmora::preamp {

/// Words of a combined Tausworthe generator: three shift registers, joined by exclusive or.
struct GeneratorWords {
    std::uint32_t a = 0;
    std::uint32_t b = 0;
    std::uint32_t c = 0;
};

/// White noise, evenly spread over 0..1. It is seeded once and never again.
class NoiseGenerator {
public:
    explicit NoiseGenerator(GeneratorWords seed) : words_(seed) {}

    /// @return the next value, 0 up to 1.
    double next()
    {
        GeneratorWords& w = words_;
        w.a = ((((w.a >> 9) ^ w.a) >> 6) & 0x1fffu) ^ (w.a << 13);
        w.b = ((((w.b >> 2) ^ w.b) >> 7) & 0xfffffu) ^ (w.b << 20);
        w.c = ((((w.c >> 6) ^ w.c) >> 8) & 0x1ffffu) ^ (w.c << 17);
        return static_cast<double>(w.a ^ w.b ^ w.c) * kToUnit;
    }

private:
    static constexpr double kToUnit = 2.3283064365e-10; // 2^-32

    GeneratorWords words_;
};

} // namespace velmora::preamp
