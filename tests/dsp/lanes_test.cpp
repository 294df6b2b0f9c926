#include "dsp/flush.h"
#include "dsp/lanes.h"
#include "dsp/run_widest.h"
#include "tests/support/instruction_sets.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdio>
#include <limits>
#include <random>
#include <vector>

namespace velmora::test {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

std::uint64_t bits(double v)
{
    return std::bit_cast<std::uint64_t>(v);
}

/// Every pair of the values where selects go wrong, in all lanes at once and in one alone.
const std::vector<double> kCorners{0.0,  -0.0,       1.0,    -1.0,    1e-310, -5e-324,
                                   1e30, -kInfinity, 1e-300, -1e-200, kNaN,   kInfinity};

/// The whole toolbox on one pair; each result goes to a slot of its own.
template <typename V>
VELMORA_KERNEL void useAll(const V& a, const V& b, double* out)
{
    constexpr std::size_t n = kLaneCount<V>;
    storeLanes<V>(out, choose<V>(a < b, a, b));
    storeLanes<V>(out + n, keepWhere<V>(a >= b, a));
    storeLanes<V>(out + 2 * n, maxLanes<V>(a, b));
    storeLanes<V>(out + 3 * n, minLanes<V>(a, b));
    storeLanes<V>(out + 4 * n, zeroNanLanes<V>(a));
    storeLanes<V>(out + 5 * n, absLanes<V>(a));
    storeLanes<V>(out + 6 * n, flushLanes<V>(a, 1e-30));
    storeLanes<V>(out + 7 * n, sqrtLanes<V>(absLanes<V>(a)));
    storeLanes<V>(out + 8 * n, a * b - a);
    storeLanes<V>(out + 9 * n, allLanes<V>(-0.0));
    storeLanes<V>(out + 10 * n, fromBits<V>(bitsOf<V>(a)));
}
constexpr std::size_t kResults = 11;

/// What one lane of `useAll` has to be.
std::array<double, kResults> scalars(double a, double b)
{
    return {a < b ? a : b,
            a >= b ? a : 0.0,
            a > b ? a : b,
            a < b ? a : b,
            std::isnan(a) ? 0.0 : a,
            std::fabs(a),
            flush(a, 1e-30),
            std::sqrt(std::fabs(a)),
            a * b - a,
            -0.0,
            a};
}

template <typename V>
void expectScalarsInEveryLane()
{
    constexpr std::size_t n = kLaneCount<V>;
    double a[n];
    double b[n];
    double out[kResults * n];
    for (std::size_t pair = 0; pair < kCorners.size() * kCorners.size(); ++pair) {
        for (std::size_t lane = 0; lane < n; ++lane) { // neighbours differ, so no lane can take another's
            a[lane] = kCorners[(pair + lane) % kCorners.size()];
            b[lane] = kCorners[(pair / kCorners.size() + 5 * lane) % kCorners.size()];
        }
        runWidest([&]() VELMORA_KERNEL_LAMBDA { useAll<V>(loadLanes<V>(a), loadLanes<V>(b), out); });
        for (std::size_t lane = 0; lane < n; ++lane) {
            const auto expected = scalars(a[lane], b[lane]);
            for (std::size_t i = 0; i < kResults; ++i) {
                const double got = out[i * n + lane];
                if (std::isnan(expected[i]))
                    EXPECT_TRUE(std::isnan(got)) << "result " << i << " of " << a[lane] << ", " << b[lane];
                else
                    EXPECT_EQ(bits(got), bits(expected[i]))
                        << "result " << i << " of " << a[lane] << ", " << b[lane];
            }
        }
    }
}

TEST(Lanes, GiveTheBitsOfAScalarOnEverySet)
{
    forEachInstructionSet([] {
        expectScalarsInEveryLane<Lanes2>();
        expectScalarsInEveryLane<Lanes4>();
        expectScalarsInEveryLane<Lanes8>();
    });
}

TEST(Lanes, MapTouchesItsValuesAndNoOthers)
{
    forEachInstructionSet([] {
        for (std::size_t count = 0; count < 20; ++count) {
            std::vector<double> from(count + 8);
            for (std::size_t i = 0; i < from.size(); ++i) from[i] = 1.0 + 0.3 * static_cast<double>(i);
            std::vector<double> to = from;
            const auto map = [&](const double* source) {
                runWidest([&](auto width) VELMORA_KERNEL_LAMBDA {
                    using V = Lanes<width>;
                    mapLanes<V>(source, to.data(), count,
                                [](const V& v) VELMORA_KERNEL_LAMBDA { return v * v - 0.1; });
                });
            };
            map(from.data());
            std::vector<double> inPlace = from;
            std::swap(inPlace, to); // `to` holds the input again
            map(to.data());
            EXPECT_EQ(to, inPlace) << count;
            for (std::size_t i = 0; i < from.size(); ++i)
                EXPECT_EQ(to[i], i < count ? from[i] * from[i] - 0.1 : from[i]) << count << " " << i;
        }
    });
}

// The width shows which function ran.
std::size_t widthInUse()
{
    std::size_t seen = 0;
    runWidest([&](auto width) VELMORA_KERNEL_LAMBDA { seen = width; });
    return seen;
}

TEST(RunWidest, HonoursTheHeldSet)
{
    const InstructionSet before = instructionSet();
    const std::size_t widthBefore = widthInUse();
    EXPECT_EQ(before, widestInstructionSet());
    int sets = 0;
    forEachInstructionSet([&] {
        const InstructionSet outer = instructionSet();
        const std::size_t width = widthInUse();
        EXPECT_EQ(width, std::size_t{2} << static_cast<int>(outer));
        {
            const HeldInstructionSet inner(InstructionSet::Baseline);
            EXPECT_EQ(widthInUse(), 2u);
        }
        EXPECT_EQ(instructionSet(), outer);
        EXPECT_EQ(widthInUse(), width);
        ++sets;
    });
    std::printf("%d instruction sets on this machine\n", sets);
    EXPECT_EQ(instructionSet(), before);
    EXPECT_EQ(widthInUse(), widthBefore);
}

// A recursion with products and sums side by side: a contraction would show in the last bits.
TEST(RunWidest, SetsAgreeBitForBit)
{
    std::mt19937 random(11);
    std::uniform_real_distribution<double> range(-1.0, 1.0);
    std::vector<double> input(4 * 3000);
    for (double& x : input) x = range(random);

    std::vector<double> scalar = input;
    double state[4]{};
    for (std::size_t i = 0; i < scalar.size(); ++i) {
        double& y = state[i % 4];
        y = flush(1.9 * y - 0.95 * y * std::fabs(y) + 0.013 * scalar[i], 1e-30);
        scalar[i] = y / (std::fabs(y) + 1.0);
    }
    forEachInstructionSet([&] {
        std::vector<double> lanes = input;
        runWidest([&]() VELMORA_KERNEL_LAMBDA {
            Lanes4 y{};
            for (std::size_t i = 0; i < lanes.size(); i += 4) {
                const Lanes4 x = loadLanes<Lanes4>(&lanes[i]);
                y = flushLanes<Lanes4>(1.9 * y - 0.95 * y * absLanes(y) + 0.013 * x, 1e-30);
                storeLanes<Lanes4>(&lanes[i], y / (absLanes(y) + 1.0));
            }
        });
        EXPECT_EQ(lanes, scalar);
    });
}

} // namespace
} // namespace velmora::test
