#pragma once

#include "dsp/lanes.h"
#include "dsp/vector_math.h"

namespace velmora {

/// Sine and cosine of one angle.
template <typename V>
struct SineCosine {
    V sine, cosine;
};

/// Sine and cosine of 0 to pi, each within 1.1 units of its last place, or of that of 1e-8 where it is
/// smaller near a quarter or a half turn. NaN of NaN; nothing useful beyond.
///
/// The angle's distance from the nearest quarter turn goes through the power series, as head and tail.
template <typename V>
VELMORA_KERNEL SineCosine<V> sineCosineLanes(const V& angle)
{
    constexpr double kQuarterHead = 0x1.921fb54400000p0; // 33 bits: twice of it is exact
    constexpr double kQuarterTail = 0x1.0b4611a626331p-34;
    constexpr double kSine[] = {-1.0 / 6,          1.0 / 120,        -1.0 / 5040,           1.0 / 362880,
                                -1.0 / 39916800.0, 1.0 / 6227020800, -1.0 / 1307674368000.0};
    constexpr double kCosine[] = {
        1.0 / 24,        -1.0 / 720,           1.0 / 40320,           -1.0 / 3628800,
        1.0 / 479001600, -1.0 / 87178291200.0, 1.0 / 20922789888000.0};
    const V quarters = detail::roundLanes<V>(angle * 0x1.45f306dc9c883p-1);
    const auto [r, tail] = detail::settled<V>(angle - quarters * kQuarterHead, -quarters * kQuarterTail);
    const V square = r * r;

    const V half = 0.5 * square;
    const V line = 1.0 - half;
    const V cosine = line + (((1.0 - line) - half) +
                             (square * square * detail::polynomial<V>(square, kCosine) - r * tail));
    const V sine = r + (r * square * detail::polynomial<V>(square, kSine) + tail * line);

    const V otherSine = choose<V>(quarters == 1.0, cosine, -sine);
    const V otherCosine = choose<V>(quarters == 1.0, -sine, -cosine);
    return {choose<V>(quarters == 0.0, sine, otherSine), choose<V>(quarters == 0.0, cosine, otherCosine)};
}

} // namespace velmora
