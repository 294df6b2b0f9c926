#include "modules/compressor/power_1_4.h"
#include "tests/modules/compressor/compressor_rig.h"
#include "tests/plain/compressor.h"
#include "tests/support/gap.h"
#include "tests/support/instruction_sets.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

namespace velmora::test {
namespace {

using Rig = CompressorRig;

void setAll(Rig& rig, const plain::CompressorValues& v)
{
    rig.set(Rig::Attack, v.attack);
    rig.set(Rig::Release, v.release);
    rig.set(Rig::Threshold, v.threshold);
    rig.set(Rig::Ratio, v.ratio);
    rig.set(Rig::Mix, v.mix);
    rig.set(Rig::Makeup, v.makeup);
    rig.set(Rig::HighPass, v.highPass);
}

// Bursts of all levels, with a sample here and there that is no number or hardly one.
Signal bursts(std::size_t length)
{
    std::mt19937 random(5);
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    Signal x(length);
    double level = 0.0;
    double smooth = 0.0;
    for (std::size_t i = 0; i < length; ++i) {
        if (i % 700 == 0) level = std::pow(10.0, 5.0 * unit(random) - 4.0);
        smooth += 0.3 * (2.0 * unit(random) - 1.0 - smooth);
        x[i] = level * (smooth + 0.5 * std::sin(0.031 * static_cast<double>(i)));
    }
    for (std::size_t i = 999; i < length; i += 2001) x[i] = std::numeric_limits<double>::quiet_NaN();
    for (std::size_t i = 500; i < length; i += 2001) x[i] = std::numeric_limits<double>::denorm_min();
    return x;
}

const plain::CompressorValues kGentle{0.5, 0.3, 0.4, 0.5, 0.7, 0.4, 0.2};
const plain::CompressorValues kHardest{0.0, 0.0, 0.0, 1.0, 1.0, 1.0, 1.0};

/// From the gentle values to the hardest and back, on the way with glides that neither begin nor end on a
/// block's edge.
Signal fast(int variant, double rate, const Signal& x, std::size_t piece)
{
    Rig rig(variant, rate);
    setAll(rig, kGentle);
    rig.module.reset();
    Signal y;
    for (std::size_t part = 0; part < 4; ++part) {
        const auto from = x.begin() + static_cast<std::ptrdiff_t>(part * x.size() / 4);
        const Signal out = rig.run({from, from + static_cast<std::ptrdiff_t>(x.size() / 4)}, {}, piece);
        y.insert(y.end(), out.begin(), out.end());
        setAll(rig, part % 2 == 0 ? kHardest : kGentle);
    }
    return y;
}
Signal plainly(int variant, double rate, const Signal& x)
{
    plain::Compressor compressor(variant, kGentle, rate);
    Signal y(x.size());
    for (std::size_t i = 0; i < x.size(); ++i) {
        y[i] = compressor.process(x[i], x[i]);
        if ((i + 1) % (x.size() / 4) == 0)
            compressor.set((i + 1) / (x.size() / 4) % 2 == 1 ? kHardest : kGentle);
    }
    return y;
}

TEST(Kernel, AgreesWithThePlainFormOnEveryInstructionSet)
{
    const Signal x = bursts(40004);
    for (int variant : kVariants)
        for (double rate : kRates) {
            const Signal expected = plainly(variant, rate, x);
            const Signal y = fast(variant, rate, x, 64);
            EXPECT_EQ(y, expected) << kVariantNames[static_cast<unsigned>(variant)] << " at " << rate
                                   << " Hz";
            forEachInstructionSet([&] {
                for (std::size_t piece : {64U, 5U, 1U}) EXPECT_EQ(fast(variant, rate, x, piece), y);
            });
        }
}

// The falls of a far too loud key leave the opto's envelopes wandering. A last place that differs behind the
// compressor before it, or in an own power, grows there to several decibels; so all places have to be right.
TEST(Kernel, FallsOfALoudKeyAgreeBehindEveryCompressor)
{
    constexpr double kRate = 192000.0;
    Signal x(30000);
    for (std::size_t i = 0; i < x.size(); ++i)
        x[i] = 1e6 * std::exp(-0.01 * static_cast<double>(i % 1500)) * (i / 40 % 2 == 0 ? 1.0 : -1.0);
    for (double attack : {0.3, 0.6})
        for (int first : kVariants) {
            const plain::CompressorValues values{attack, 0.2, 0.0, 0.6, 1.0, 0.0, 0.0};
            plain::Compressor plainFirst(first, values, kRate);
            plain::Compressor plainOpto(Opto, values, kRate);
            Rig rigFirst(first, kRate);
            Rig rigOpto(Opto, kRate);
            for (Rig* rig : {&rigFirst, &rigOpto}) {
                setAll(*rig, values);
                rig->module.reset();
            }
            const Signal y = rigOpto.run(rigFirst.run(x));
            Signal expected(x.size());
            for (std::size_t i = 0; i < x.size(); ++i) {
                const double before = plainFirst.process(x[i], x[i]);
                expected[i] = plainOpto.process(before, before);
            }
            EXPECT_EQ(y, expected) << "behind the " << kVariantNames[static_cast<unsigned>(first)];
        }
}

TEST(Kernel, ShortPowerAgreesWithTheLibrary)
{
    double power = 0.0;
    for (int i = -60000; i < 20000; ++i) {
        const double x = std::pow(10.0, 0.001 * i);
        const auto exact = static_cast<double>(0.3L * std::pow(static_cast<long double>(x), 1.4L));
        power = std::max(power, gapBetween(sharedPower1_4(x, 0.3) / exact, 1.0));
    }
    std::printf("x^1.4 off by %.1e of itself\n", power);
    EXPECT_LT(power, 1.5e-15); // its user reckons with twice as much
    for (double none : {0.0, std::numeric_limits<double>::denorm_min()})
        EXPECT_EQ(sharedPower1_4(none, 1.0), 0.0);
}

} // namespace
} // namespace velmora::test
