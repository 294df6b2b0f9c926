#include "modules/input/vintage_converter.h"

#include "dsp/run_widest.h"

#include <algorithm>

namespace velmora::preamp {

namespace {

constexpr double kJitterSpan = 0.1; // of a sample
constexpr double kJitterStart = 0.5;
constexpr double kOverloadLevel = 128.0;
constexpr double kOverloadReading = 0.3;
constexpr double kCeiling = 32767.0;
constexpr double kFloor = -32768.0;
constexpr std::int64_t kHalfScale = 32768;
constexpr std::int64_t kRange = 4;

template <typename V>
VELMORA_KERNEL V toDouble(const MaskOf<V>& small)
{
    constexpr double kOffset = 0x1.8p52; // the lowest bits of its neighbours count in ones
    constexpr std::int64_t kOffsetBits = 0x4338000000000000;
    return fromBits<V>(small + kOffsetBits) - kOffset;
}

} // namespace

void VintageConverter::process(RailPiece& signal, int count, NoiseGenerator& jitter, SaturationMeter& meter,
                               double meterShare)
{
    double level = meter.level();
    runWidest([&](auto width) VELMORA_KERNEL_LAMBDA {
        RailPiece instants;
        for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i)
            instants.put(i, allLanes<Rails>(jitter.next() * kJitterSpan + kJitterStart));
        convert<decltype(width)::value>(signal, count, instants);
        for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
            const std::int64_t marks = marks_[kRails * i] | marks_[kRails * i + 1];
            level =
                SaturationMeter::glide(level, (marks & kOverload) != 0 ? kOverloadReading : 0.0, meterShare);
            level = (marks & kClip) != 0 ? SaturationMeter::kFull : level;
        }
    });
    meter.show(level);
}

template <std::size_t width>
VELMORA_KERNEL void VintageConverter::convert(RailPiece& signal, int count, const RailPiece& instants)
{
    using V = Lanes<width>;
    constexpr std::size_t kHistory = kRails * kMemory;
    forEachVector<V>(count, [&](std::size_t at) VELMORA_KERNEL_LAMBDA {
        storeLanes<V>(&input_[kHistory + at], signal.vectorAt<V>(at) * 32768.0 * 0.025 * 0.25);
    });
    forEachVector<V>(count, [&](std::size_t at) VELMORA_KERNEL_LAMBDA {
        const V y = interpolate<V>(at, instants.vectorAt<V>(at));
        V clipped = choose<V>(y > kCeiling, allLanes<V>(kCeiling), y);
        clipped = choose<V>(clipped < kFloor, allLanes<V>(kFloor), clipped);
        MaskOf<V> marks = absLanes(y) > kOverloadLevel ? kOverload - MaskOf<V>{} : MaskOf<V>{};
        marks = clipped != y ? kClip - MaskOf<V>{} : marks;
        __builtin_memcpy(&marks_[at], &marks, sizeof marks);
        const MaskOf<V> code = approximate<V>(clipped + static_cast<double>(kHalfScale));
        const MaskOf<V> coarse = requantise<V>((code - kHalfScale) * kRange);
        signal.putVector<V>(at, toDouble<V>(coarse) * 3.0517578125e-5 * 40.0);
    });
    std::copy_n(input_.begin() + static_cast<std::ptrdiff_t>(kRails) * count, kHistory, input_.begin());
}

// Catmull-Rom spline between x1 and x2.
template <typename V>
VELMORA_KERNEL V VintageConverter::interpolate(std::size_t at, const V& t) const
{
    const V x3 = loadLanes<V>(&input_[at]);
    const V x2 = loadLanes<V>(&input_[at + kRails]);
    const V x1 = loadLanes<V>(&input_[at + 2 * kRails]);
    const V x0 = loadLanes<V>(&input_[at + 3 * kRails]);
    return ((2.0 * x0 - 5.0 * x1 + 4.0 * x2 - x3) * (t * t) + (x3 - x0 + 3.0 * x1 - 3.0 * x2) * (t * t * t) +
            (x2 - x0) * t + 2.0 * x1) *
           0.5;
}

} // namespace velmora::preamp
