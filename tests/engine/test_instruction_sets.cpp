// A session must sound the same on every machine: each module, by itself, gives the same bits with whatever
// instruction set its kernels run.

#include "dsp/flush_to_zero.h"
#include "tests/engine/lone_module.h"
#include "tests/support/instruction_sets.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdio>
#include <limits>

namespace velmora::test {
namespace {

constexpr int kBlocks = 300;
constexpr int kMeters = 12;

/// What a module gives in a rough session, bit by bit.
struct Trace {
    std::vector<std::uint64_t> bits;
    std::size_t sounding = 0; ///< outputs that are finite and not zero

    /// @param x which of them a value without a number is doesn't matter
    void add(double x)
    {
        bits.push_back(std::isnan(x) ? ~std::uint64_t{0} : std::bit_cast<std::uint64_t>(x));
    }
};

/// Blocks of odd lengths and levels, settings drawn at random and moved between them.
/// @param broken samples that are no finite number come in, at the main input and the side chain
Trace play(const ModuleType& type, unsigned seed, bool broken)
{
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    constexpr std::array kBroken{std::nan(""), kInfinity, -kInfinity, 1e200, 5e-324};
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    const auto below = [&](unsigned end) { return static_cast<unsigned>(random() % end); };
    Values values = randomValues(type, seed);
    if (type.kind == ModuleKind::Preamp) values[kPreampNoiseIn] = 0.5 * below(3);
    LoneModule module(type, values, kRates[seed % std::size(kRates)]);
    const FlushToZero asInTheStrip;
    Trace trace;
    for (int block = 0; block < kBlocks; ++block) {
        const unsigned changes = below(4) == 0 ? below(6) : 0;
        for (unsigned change = 0; change < changes; ++change) {
            const auto offset = static_cast<ParameterId>(below(47));
            if (travels(offset)) module.set(offset, unit(random));
        }
        if (below(60) == 0) module.reset();
        const unsigned frames = below(3) == 0 ? 64 : below(65);
        const double level = below(11) == 0 ? 0.0 : std::pow(10.0, static_cast<int>(below(9)) - 7);
        for (unsigned channel = 0; channel < LoneModule::kChannels; ++channel) {
            double* const samples = module.channel(channel);
            for (unsigned i = 0; i < frames; ++i) samples[i] = level * (2.0 * unit(random) - 1.0);
            if (broken && frames > 0 && channel % 2 == 0 && below(20) == 0)
                samples[below(frames)] = kBroken[below(kBroken.size())];
        }
        module.process(static_cast<std::int32_t>(frames));
        for (unsigned channel = 0; channel < 2; ++channel)
            for (unsigned i = 0; i < frames; ++i) {
                const double y = module.channel(channel)[i];
                trace.add(y);
                trace.sounding += std::isfinite(y) && y != 0.0;
            }
        for (int meter = 0; meter < kMeters; ++meter) trace.add(module.meter(meter));
    }
    return trace;
}

class EveryInstructionSet : public testing::TestWithParam<ModuleType> {};

INSTANTIATE_TEST_SUITE_P(Rack, EveryInstructionSet,
                         testing::ValuesIn(moduleTypes().begin(), moduleTypes().end()), testName);

TEST_P(EveryInstructionSet, GivesTheSameBits)
{
    std::size_t values = 0, sounding = 0;
    for (unsigned seed = 1; seed <= 7; ++seed)
        for (const bool broken : {false, true}) {
            SCOPED_TRACE(testing::Message() << "seed " << seed << (broken ? ", broken" : ""));
            const Trace expected = play(GetParam(), seed, broken);
            forEachInstructionSet([&] {
                const Trace other = play(GetParam(), seed, broken);
                const auto apart = std::ranges::mismatch(expected.bits, other.bits);
                EXPECT_EQ(apart.in1 - expected.bits.begin(), std::ssize(expected.bits)) << "first difference";
            });
            values += expected.bits.size();
            sounding += expected.sounding;
        }
    std::printf("%zu values, %zu sounding\n", values, sounding);
    EXPECT_GT(sounding, values / 3);
}

} // namespace
} // namespace velmora::test
