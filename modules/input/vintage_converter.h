#pragma once

#include "modules/input/noise_generator.h"
#include "modules/input/rails.h"
#include "modules/input/saturation_meter.h"

#include <array>
#include <cstdint>
#include <utility>

namespace velmora::preamp {

/// Converter of the 90s: sampling with a jittering clock, a 16-bit successive approximation with imperfect
/// weights, and a requantiser of fewer bits with a gain range. Delays by about 1.5 samples.
class VintageConverter {
public:
    void reset() { input_.fill(0.0); }

    /// Both rails in place. @param jitter gives the sampling instants, common to both rails.
    /// @param meterShare per-sample share of the overload reading. @range count 0..64
    void process(RailPiece& signal, int count, NoiseGenerator& jitter, SaturationMeter& meter,
                 double meterShare);

    /// Codes 0..65535 of inputs of 0..65535, by successive approximation.
    template <typename V>
    VELMORA_KERNEL static MaskOf<V> approximate(V w);
    /// Coarser steps for larger values. @param c four times a code without its offset.
    template <typename V>
    VELMORA_KERNEL static MaskOf<V> requantise(const MaskOf<V>& c);

private:
    static constexpr std::size_t kMemory = 3; // samples that the interpolation looks back

    /// Bits that say how far a sample of a rail went.
    static constexpr std::int64_t kOverload = 1;
    static constexpr std::int64_t kClip = 2;

    template <std::size_t width>
    VELMORA_KERNEL void convert(RailPiece& signal, int count, const RailPiece& instants);
    template <typename V>
    VELMORA_KERNEL V interpolate(std::size_t at, const V& t) const;

    alignas(64) std::array<double, kRails*(kMemory + kPiece)> input_{}; // rails side by side, oldest first
    alignas(64) std::array<std::int64_t, kRails * kPiece> marks_{};
};

namespace detail {

// Bits 15 down to 0. Not the powers of two: the differences make the converter's non-linearity.
inline constexpr std::array<double, 16> kConverterWeights{
    32767.24464,       16384.69152,        8191.81808, 4096.42288, 2047.4976,          1023.7795199999999,
    512.40512,         255.68975999999998, 128.40384,  64.1032,    32.300639999999994, 15.59968,
    8.300320000000001, 3.7999199999999997, 1.79994,    1.30001,
};

// Values from the base on have this step; below the first row the step is 1.
struct ConverterSegment {
    std::int64_t base;
    std::int64_t step;
};
inline constexpr std::array<ConverterSegment, 6> kConverterSegments{
    {{512, 2}, {1024, 4}, {2048, 8}, {4096, 16}, {8192, 32}, {16384, 64}}};

/// Calls `body` with each element of a constant table, written out.
template <const auto& table, typename Body>
VELMORA_KERNEL void forEachOf(Body body)
{
    [&]<std::size_t... i>(std::index_sequence<i...>) VELMORA_KERNEL_LAMBDA
    {
        (body(table[i]), ...);
    }
    (std::make_index_sequence<table.size()>{});
}

} // namespace detail

template <typename V>
VELMORA_KERNEL MaskOf<V> VintageConverter::approximate(V w)
{
    MaskOf<V> code{};
    const auto tryBit = [&](double weight) VELMORA_KERNEL_LAMBDA {
        const MaskOf<V> fits = w >= weight;
        w = choose<V>(fits, w - weight, w);
        code = (code << 1) - fits;
    };
    detail::forEachOf<detail::kConverterWeights>(tryBit);
    return code;
}

template <typename V>
VELMORA_KERNEL MaskOf<V> VintageConverter::requantise(const MaskOf<V>& c)
{
    const MaskOf<V> negative = c < 0;
    const MaskOf<V> n = c ^ negative; // negative values lie one below,
    MaskOf<V> step = 1 - MaskOf<V>{};
    const auto tryFrom = [&](const detail::ConverterSegment& segment) VELMORA_KERNEL_LAMBDA {
        step = n >= segment.base - negative ? segment.step - MaskOf<V>{} : step; // and so do their segments
    };
    detail::forEachOf<detail::kConverterSegments>(tryFrom);
    const MaskOf<V> q = n & -step;
    return (q ^ negative) - negative;
}

} // namespace velmora::preamp
