#include "dsp/level_detector.h"

#include "dsp/lanes.h"
#include "dsp/run_widest.h"

#include <bit>

namespace velmora {

// Rising covers more of the distance than falling, so the step of a sample m is the higher of two straight
// lines in the level e,
//     e' = max(e (1 - attack) + m attack, e (1 - release) + m release),
// and as both rise with e, so is a step over several samples: one line for each number of rises among them.
// The slopes are fixed, and the offsets depend on the samples alone. They are worked out for many groups of
// four side by side, and the recursion is left with one multiplication, one addition and a maximum per group.

namespace {

constexpr std::size_t kGroup = LevelRates::kGroup;
constexpr std::size_t kLines = kGroup + 1;

template <typename V>
VELMORA_KERNEL V gatherLanes(const double* from)
{
    if constexpr (kLaneCount<V> == 2)
        return V{from[0], from[kGroup]};
    else
        return V{from[0], from[kGroup], from[2 * kGroup], from[3 * kGroup]};
}

/// Offsets of the lines of neighbouring groups, by number of rises.
template <typename V>
using Offsets = std::array<V, kLines>;

/// @param samples gives sample s of every lane's group.
template <typename V, typename Samples>
VELMORA_KERNEL void findOffsets(Samples samples, const LevelRates& rates, Offsets<V>& best)
{
    const double keepRising = 1.0 - rates.attack;
    const double keepFalling = 1.0 - rates.release;
    const V first = absLanes<V>(samples(0));
    best[0] = first * rates.release;
    best[1] = first * rates.attack;
#pragma GCC unroll 4 // the lines then stay in registers
    for (std::size_t s = 1; s < kGroup; ++s) {
        const V magnitude = absLanes<V>(samples(s));
        const V rise = magnitude * rates.attack;
        const V fall = magnitude * rates.release;
        best[s + 1] = best[s] * keepRising + rise;
#pragma GCC unroll 4
        for (std::size_t rises = s; rises > 0; --rises)
            best[rises] = maxLanes(best[rises] * keepFalling + fall, best[rises - 1] * keepRising + rise);
        best[0] = best[0] * keepFalling + fall;
    }
}

VELMORA_KERNEL double higher(double a, double b)
{
    return a > b ? a : b;
}

/// Takes as many groups as fill vectors. @return samples taken
template <typename V>
VELMORA_KERNEL std::size_t followGroups(const double* x, std::size_t frames, double& level,
                                        const LevelRates& rates)
{
    constexpr std::size_t groups = kLaneCount<V>;
    Offsets<V> offsets;
    std::size_t i = 0;
    for (; i + groups * kGroup <= frames; i += groups * kGroup) {
        findOffsets<V>([=](std::size_t s) VELMORA_KERNEL_LAMBDA { return gatherLanes<V>(x + i + s); }, rates,
                       offsets);
#pragma GCC unroll 4
        for (std::size_t group = 0; group < groups; ++group) {
            const auto line = [&](std::size_t rises) VELMORA_KERNEL_LAMBDA {
                return level * rates.groupKeep[rises] + offsets[rises][group];
            };
            level = higher(higher(higher(line(0), line(1)), higher(line(2), line(3))), line(4));
        }
    }
    return i;
}

// What is taken in groups, and so the rounding, must not depend on the width.
template <std::size_t width>
VELMORA_KERNEL double followBlock(const double* x, std::size_t frames, double level, const LevelRates& rates)
{
    std::size_t i = 0;
    if constexpr (width > 2) i = followGroups<Lanes4>(x, frames, level, rates);
    i += followGroups<Lanes2>(x + i, frames - i, level, rates);
    for (; i < frames; ++i) {
        const double magnitude = std::fabs(x[i]);
        level = higher(level * (1.0 - rates.attack) + magnitude * rates.attack,
                       level * (1.0 - rates.release) + magnitude * rates.release);
    }
    return level;
}

/// Sample s of two signals' groups: the first ones, and in a vector of four the ones behind them.
template <typename V>
VELMORA_KERNEL V gatherPair(const double* a, const double* b)
{
    if constexpr (kLaneCount<V> == 2)
        return V{a[0], b[0]};
    else
        return V{a[0], b[0], a[kGroup], b[kGroup]};
}

template <typename V>
VELMORA_KERNEL Lanes2 pairOf(const V& v, std::size_t group)
{
    return Lanes2{v[2 * group], v[2 * group + 1]};
}

/// Two detectors side by side, each with the arithmetic that it has by itself, so that one waits for its own
/// recursion while the other works.
template <std::size_t width>
VELMORA_KERNEL Lanes2 followPair(const double* a, const double* b, std::size_t frames, Lanes2 levels,
                                 const LevelRates& rates)
{
    using V = Lanes<width == 2 ? 2 : 4>;
    constexpr std::size_t groups = kLaneCount<V> / 2;
    const std::size_t inGroups = frames - frames % (2 * kGroup); // as many as one detector takes in groups
    Offsets<V> offsets;
    std::size_t i = 0;
    for (; i < inGroups; i += groups * kGroup) {
        findOffsets<V>([=](std::size_t s)
                           VELMORA_KERNEL_LAMBDA { return gatherPair<V>(a + i + s, b + i + s); },
                       rates, offsets);
#pragma GCC unroll 2
        for (std::size_t group = 0; group < groups; ++group) {
            const auto line = [&](std::size_t rises) VELMORA_KERNEL_LAMBDA {
                return levels * rates.groupKeep[rises] + pairOf(offsets[rises], group);
            };
            levels = maxLanes(maxLanes(maxLanes(line(0), line(1)), maxLanes(line(2), line(3))), line(4));
        }
    }
    for (; i < frames; ++i) {
        const Lanes2 magnitudes = absLanes(Lanes2{a[i], b[i]});
        levels = maxLanes(levels * (1.0 - rates.attack) + magnitudes * rates.attack,
                          levels * (1.0 - rates.release) + magnitudes * rates.release);
    }
    return levels;
}

VELMORA_KERNEL bool sameSamples(const double* a, const double* b, std::size_t frames)
{
    std::uint64_t difference = 0;
    for (std::size_t i = 0; i < frames; ++i)
        difference |= std::bit_cast<std::uint64_t>(a[i]) ^ std::bit_cast<std::uint64_t>(b[i]);
    return difference == 0;
}

} // namespace

void LevelDetector::processBlock(const double* x, std::int32_t frames, const LevelRates& rates)
{
    if (frames <= 0) return;
    double level = level_;
    runWidest([&](auto width) VELMORA_KERNEL_LAMBDA {
        level = followBlock<width>(x, static_cast<std::size_t>(frames), level, rates);
    });
    land(level, x, frames, rates);
}

void LevelDetector::processBlocks(LevelDetector& left, const double* xLeft, LevelDetector& right,
                                  const double* xRight, std::int32_t frames, const LevelRates& rates)
{
    if (frames <= 0) return;
    const auto count = static_cast<std::size_t>(frames);
    Lanes2 levels{left.level_, right.level_};
    bool same = left == right;
    runWidest([&](auto width) VELMORA_KERNEL_LAMBDA {
        same = same && (xLeft == xRight || sameSamples(xLeft, xRight, count));
        if (same)
            levels[0] = followBlock<width>(xLeft, count, levels[0], rates);
        else
            levels = followPair<width>(xLeft, xRight, count, levels, rates);
    });
    left.land(levels[0], xLeft, frames, rates);
    if (same)
        right = left;
    else
        right.land(levels[1], xRight, frames, rates);
}

void LevelDetector::land(double level, const double* x, std::int32_t frames, const LevelRates& rates)
{
    if (std::isfinite(level))
        level_ = flush(level, kFlush);
    else // what exactly becomes of an infinity depends on where it stands
        for (std::int32_t i = 0; i < frames; ++i) process(x[i], rates);
}

} // namespace velmora
