#include "dsp/level_detector.h"

#include "dsp/lanes.h"
#include "dsp/run_widest.h"

#include <algorithm>

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
constexpr std::size_t kGroups = kLaneCount<Lanes4>; // at a time
constexpr std::size_t kBatch = kGroups * kGroup;

/// Offsets of the lines of each group in a batch, by number of rises.
using Offsets = std::array<std::array<double, kGroups>, kLines>;

VELMORA_KERNEL Offsets lineOffsets(const double* x, const LevelRates& rates)
{
    const double keepRising = 1.0 - rates.attack;
    const double keepFalling = 1.0 - rates.release;
    std::array<Lanes4, kLines> best{};
#pragma GCC unroll 4 // the lines then stay in registers
    for (std::size_t s = 0; s < kGroup; ++s) {
        const Lanes4 magnitude = absLanes(Lanes4{x[s], x[s + kGroup], x[s + 2 * kGroup], x[s + 3 * kGroup]});
        const Lanes4 rise = magnitude * rates.attack;
        const Lanes4 fall = magnitude * rates.release;
        best[s + 1] = best[s] * keepRising + rise;
#pragma GCC unroll 4
        for (std::size_t rises = s; rises > 0; --rises)
            best[rises] = maxLanes(best[rises] * keepFalling + fall, best[rises - 1] * keepRising + rise);
        best[0] = best[0] * keepFalling + fall;
    }
    Offsets offsets;
    for (std::size_t rises = 0; rises < kLines; ++rises) storeLanes(offsets[rises].data(), best[rises]);
    return offsets;
}

VELMORA_KERNEL double higher(double a, double b)
{
    return a > b ? a : b;
}

VELMORA_KERNEL double stepGroup(double level, const LevelRates& rates, const Offsets& offsets,
                                std::size_t group)
{
    const auto line = [&](std::size_t rises) {
        return level * rates.groupKeep[rises] + offsets[rises][group];
    };
    return higher(higher(higher(line(0), line(1)), higher(line(2), line(3))), line(4));
}

VELMORA_KERNEL double followBlock(const double* x, std::size_t frames, double level, const LevelRates& rates)
{
    std::size_t i = 0;
    for (; i + kBatch <= frames; i += kBatch) {
        const Offsets offsets = lineOffsets(x + i, rates);
        for (std::size_t group = 0; group < kGroups; ++group) level = stepGroup(level, rates, offsets, group);
    }
    for (; i < frames; ++i) {
        const double magnitude = std::fabs(x[i]);
        level = higher(level * (1.0 - rates.attack) + magnitude * rates.attack,
                       level * (1.0 - rates.release) + magnitude * rates.release);
    }
    return level;
}

} // namespace

void LevelDetector::processBlock(const double* x, std::int32_t frames, const LevelRates& rates)
{
    if (frames <= 0) return;
    double level = level_;
    runWidest([&] { level = followBlock(x, static_cast<std::size_t>(frames), level, rates); });
    if (std::isfinite(level))
        level_ = flush(level, kFlush);
    else // what exactly becomes of an infinity depends on where it stands
        for (std::int32_t i = 0; i < frames; ++i) process(x[i], rates);
}

} // namespace velmora
