#include "dsp/level_meter.h"
#include "dsp/run_widest.h"
#include "tests/plain/level_detector.h"
#include "tests/support/gap.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <iostream>
#include <limits>
#include <random>
#include <vector>

namespace velmora::test {
namespace {

using Signal = std::vector<double>;

/// Bursts over 300 dB, gaps of silence, steady stretches, and numbers at the lower end of what a double
/// holds.
Signal burstySignal(std::size_t length)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<double> sample(-1.0, 1.0);
    std::uniform_real_distribution<double> exponent(-9.0, 6.0);
    Signal signal(length);
    for (std::size_t start = 0; start < length;) {
        const std::size_t end = std::min(length, start + 1 + random() % 700);
        const auto kind = random() % 5;
        const double level = kind == 3 ? 1e-310 : std::pow(10.0, exponent(random));
        for (; start < end; ++start)
            signal[start] = kind == 0 ? 0.0 : kind == 1 ? level : level * sample(random);
    }
    return signal;
}

/// The level behind every block, for block lengths 1, 2, 3 ... as long as the signal lasts.
template <typename Follow>
Signal levels(const Signal& signal, const LevelRates& rates, int longest, Follow follow)
{
    Signal seen;
    LevelDetector detector;
    int length = 0;
    for (std::size_t at = 0; at < signal.size();) {
        length = length % longest + 1;
        const auto count = std::min(static_cast<std::size_t>(length), signal.size() - at);
        follow(detector, signal.data() + at, static_cast<std::int32_t>(count), rates);
        seen.push_back(detector.level());
        at += count;
    }
    return seen;
}

void fast(LevelDetector& detector, const double* x, std::int32_t frames, const LevelRates& rates)
{
    detector.processBlock(x, frames, rates);
}

TEST(LevelDetector, BlocksEndWhereSamplesDoAtEveryLengthAndRate)
{
    const Signal signal = burstySignal(400000);
    double worst = 0.0;
    for (const double rate : {44100.0, 96000.0, 384000.0})
        for (const int longest : {5, 67}) {
            const LevelRates rates = levelMeterRates(rate);
            const Signal expected = levels(signal, rates, longest, plain::followBlock);
            const Signal blocks = levels(signal, rates, longest, fast);
            for (std::size_t i = 0; i < expected.size(); ++i)
                worst = std::max(worst, gapBetween(blocks[i], expected[i]) / std::max(expected[i], 1e-9));
            for (const InstructionSet set : {InstructionSet::Baseline, InstructionSet::Avx2}) {
                if (set > widestInstructionSet()) continue;
                const HeldInstructionSet held(set);
                EXPECT_EQ(levels(signal, rates, longest, fast), blocks);
            }
        }
    std::cout << "worst relative difference " << worst << '\n';
    EXPECT_LT(worst, 1e-11);
}

TEST(LevelDetector, FreshOnesHoldStillAndSilenceLeavesNoDenormal)
{
    const LevelRates rates = levelMeterRates(44100.0);
    LevelDetector detector;
    const Signal tiny(64, 1e-308);
    for (int block = 0; block < 100; ++block) detector.processBlock(tiny.data(), 64, rates);
    EXPECT_EQ(detector.level(), 0.0);
    const Signal loud(64, 1e6);
    detector.processBlock(loud.data(), 64, rates);
    const Signal silence(4096);
    for (int block = 0; block < 2000; ++block) detector.processBlock(silence.data(), 4096, rates);
    EXPECT_TRUE(detector.level() == 0.0 || std::fpclassify(detector.level()) == FP_NORMAL)
        << detector.level();
    EXPECT_LT(detector.level(), 1e-20);
}

TEST(LevelDetector, WhatIsNoNumberStaysAsItDoesSampleBySample)
{
    const LevelRates rates = levelMeterRates(48000.0);
    const double infinity = std::numeric_limits<double>::infinity();
    for (const double wild :
         {std::numeric_limits<double>::quiet_NaN(), infinity, -infinity, std::numeric_limits<double>::max()})
        for (std::size_t at = 0; at < 37; ++at) {
            Signal signal(37, 0.25);
            signal[at] = wild;
            LevelDetector expected;
            LevelDetector detector;
            for (int round = 0; round < 2; ++round) {
                plain::followBlock(expected, signal.data(), 37, rates);
                detector.processBlock(signal.data(), 37, rates);
                if (std::isnan(expected.level()))
                    EXPECT_TRUE(std::isnan(detector.level())) << wild << " at " << at;
                else if (std::isinf(expected.level()))
                    EXPECT_EQ(detector.level(), expected.level()) << wild << " at " << at;
                else
                    EXPECT_NEAR(detector.level() / expected.level(), 1.0, 1e-12) << wild << " at " << at;
                std::ranges::fill(signal, 0.25);
            }
            detector.reset();
            detector.processBlock(signal.data(), 37, rates);
            EXPECT_TRUE(std::isfinite(detector.level()));
        }
}

/// Every finite level, and whether it's a number at all.
void expectAlike(const LevelDetector& detector, const LevelDetector& expected, std::size_t at)
{
    if (std::isnan(expected.level()))
        ASSERT_TRUE(std::isnan(detector.level())) << "sample " << at;
    else
        ASSERT_EQ(detector.level(), expected.level()) << "sample " << at;
}

TEST(LevelDetector, OfAPairEachEndsWhereItWouldAlone)
{
    const LevelRates rates = levelMeterRates(48000.0);
    const Signal a = burstySignal(20000);
    Signal b(a.rbegin(), a.rend());
    b[5000] = std::numeric_limits<double>::quiet_NaN();
    for (const InstructionSet set :
         {InstructionSet::Baseline, InstructionSet::Avx2, InstructionSet::Avx512}) {
        if (set > widestInstructionSet()) continue;
        const HeldInstructionSet held(set);
        std::array<LevelDetector, 2> pair, alone;
        std::size_t length = 0;
        for (std::size_t at = 0; at + 67 < a.size(); at += length) {
            length = length % 67 + 1;
            const auto frames = static_cast<std::int32_t>(length);
            LevelDetector::processBlocks(pair[0], &a[at], pair[1], &b[at], frames, rates);
            alone[0].processBlock(&a[at], frames, rates);
            alone[1].processBlock(&b[at], frames, rates);
            expectAlike(pair[0], alone[0], at);
            expectAlike(pair[1], alone[1], at);
        }
    }
}

// A rack of modules that pass audio through, change it, sit at another rate or start late, with blocks of all
// lengths.
TEST(LevelMemo, GivesEveryDetectorWhatItWouldFindByItself)
{
    constexpr std::size_t kModules = 5;
    const Signal signal = burstySignal(30000);
    const LevelRates slow = levelMeterRates(48000.0);
    const LevelRates fast = levelMeterRates(44100.0);
    std::array<LevelDetector, 2 * kModules> shared, alone;
    LevelMemo memo;
    std::size_t length = 0;
    for (std::size_t at = 0; at + 67 < signal.size(); at += length) {
        length = length % 67 + 1;
        const auto frames = static_cast<std::int32_t>(length);
        Signal x(signal.begin() + static_cast<std::ptrdiff_t>(at),
                 signal.begin() + static_cast<std::ptrdiff_t>(at + length));
        if (at > 20000) x[length / 2] = std::numeric_limits<double>::quiet_NaN();
        for (std::size_t m = 0; m < kModules; ++m) {
            const LevelRates& rates = m == 3 ? fast : slow;
            Signal y = x;
            if (m == 1) y[length - 1] *= 0.5;
            if (m == 4 && at > 10000 && at < 11000) shared[8] = shared[9] = alone[8] = alone[9] = {};
            memo.follow(shared[2 * m], x.data(), shared[2 * m + 1], y.data(), frames, rates);
            alone[2 * m].processBlock(x.data(), frames, rates);
            alone[2 * m + 1].processBlock(y.data(), frames, rates);
            expectAlike(shared[2 * m], alone[2 * m], at);
            expectAlike(shared[2 * m + 1], alone[2 * m + 1], at);
            x = y;
        }
    }
}

TEST(LevelMeter, MeasuresEachSideByItselfOnceTheyDiffer)
{
    const LevelRates rates = levelMeterRates(44100.0);
    const Signal left = burstySignal(64 * 40);
    Signal right = left;
    for (std::size_t i = 64 * 10; i < 64 * 12; ++i) right[i] += 3e6;
    LevelMeter blocks;
    LevelMeter samples;
    for (std::size_t at = 0; at < left.size(); at += 64) {
        blocks.processBlock(left.data() + at, right.data() + at, 64, rates);
        for (std::size_t i = at; i < at + 64; ++i) samples.process(left[i], right[i], rates);
        ASSERT_NEAR(blocks.reading(), samples.reading(), 1e-12 * samples.reading()) << at / 64;
        if (at / 64 == 12) {
            EXPECT_GT(blocks.reading(), 1e6);
        }
    }
}

} // namespace
} // namespace velmora::test
