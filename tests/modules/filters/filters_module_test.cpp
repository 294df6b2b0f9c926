#include "tests/modules/filters/filters_rig.h"

#include <gtest/gtest.h>

#include <cstdio>

namespace velmora::test {
namespace {

using Rig = FiltersRig;

// A mixed setting with all three filters in, at rest.
void engage(Rig& rig)
{
    for (int id : {Rig::LpfIn, Rig::PrmIn, Rig::HpfIn}) rig.set(id, 1.0);
    rig.set(Rig::LpfFreq, 0.7);
    rig.set(Rig::LpfSlope, 1.0);
    rig.set(Rig::PrmGain, 0.8);
    rig.set(Rig::HpfFreq, 0.6);
    rig.module.reset();
}

TEST(Filters, SwitchingInLandsAtOnceWithCleanHistories)
{
    struct Row {
        int in, slope, frequency, slopes;
    };
    constexpr Row kRows[]{{Rig::HpfIn, Rig::HpfSlope, Rig::HpfFreq, 3},
                          {Rig::LpfIn, Rig::LpfSlope, Rig::LpfFreq, 3},
                          {Rig::PrmIn, Rig::PrmType, Rig::PrmFreq, 5}};
    const Signal x = noise(500, 0.5);
    for (const Row& row : kRows)
        for (int slope = 0; slope < row.slopes; ++slope) {
            Rig used(Rig::Pro);
            used.set(row.in, 1.0);
            used.run(x);
            used.set(row.in, 0.0);
            EXPECT_EQ(used.run(x), x); // out: bypassed
            used.set(row.slope, slope / (row.slopes - 1.0));
            used.set(row.frequency, 0.43); // its glide must not be heard
            used.set(row.in, 1.0);
            Rig fresh(Rig::Pro);
            fresh.set(row.slope, slope / (row.slopes - 1.0));
            fresh.set(row.frequency, 0.43);
            fresh.set(row.in, 1.0);
            fresh.module.reset();
            EXPECT_EQ(used.run(x), fresh.run(x)) << row.in << ", slope " << slope;
        }
}

TEST(Filters, BasicLeavesTheBandOutAndProPutsItIn)
{
    Rig basic(Rig::Basic);
    Rig pro(Rig::Pro);
    engage(basic);
    engage(pro);
    const double hz = 20.0 * std::sqrt(1000.0);
    EXPECT_NEAR(pro.magnitudeDb(hz) - basic.magnitudeDb(hz), 14.4, 1e-9);
    pro.set(Rig::PrmIn, 0.0);
    EXPECT_NEAR(pro.magnitudeDb(hz), basic.magnitudeDb(hz), 1e-12);
}

TEST(Filters, SideChainVariantFiltersTheAuxiliaryPair)
{
    const std::size_t n = 3000;
    const Channels in{noise(n, 0.5, 1), noise(n, 0.5, 2), noise(n, 0.5, 3), noise(n, 0.5, 4)};
    Rig pro(Rig::Pro);
    engage(pro);
    const Channels filtered = pro.run({in[2], in[3], in[0], in[1]}, 64, Form::Stereo);
    for (Form form : {Form::Mono, Form::Stereo})
        for (bool monitor : {false, true}) {
            Rig rig(Rig::SideChain);
            engage(rig);
            rig.set(Rig::Monitor, monitor ? 1.0 : 0.0);
            const Channels out = rig.run(in, 64, form);
            EXPECT_EQ(out[2], filtered[0]);
            EXPECT_EQ(out[3], filtered[1]);
            EXPECT_EQ(out[0], monitor ? filtered[0] : in[0]);
            EXPECT_EQ(out[1], monitor ? filtered[1] : in[1]);
            EXPECT_EQ(rig.meter(0), pro.meter(0));
            EXPECT_EQ(rig.meter(1), pro.meter(1));
        }
}

TEST(Filters, SilentSideChainLeavesTheSignalAlone)
{
    Rig rig(Rig::SideChain);
    engage(rig);
    const Signal x = noise(1000, 0.5);
    EXPECT_EQ(rig.run(x), x);
    EXPECT_EQ(rig.meter(0), 0.0);
    EXPECT_EQ(rig.meter(1), 0.0);
    rig.set(Rig::Monitor, 1.0);
    EXPECT_EQ(peakOf(rig.run(x)), 0.0);
}

TEST(Filters, PassThroughWhenOffOrWithoutVariant)
{
    const Channels in{noise(500, 0.5, 1), noise(500, 0.7, 2), noise(500, 0.5, 3), noise(500, 0.5, 4)};
    for (int type : {0, 2, 4, 15}) {
        Rig rig(type);
        engage(rig);
        if (type == Rig::Pro) rig.module.deactivate();
        EXPECT_EQ(rig.run(in), in) << type;
        EXPECT_GT(rig.meter(0), 0.1);
        EXPECT_EQ(rig.meter(0), rig.meter(1));
        rig.module.activate();
        EXPECT_EQ(rig.run(in) == in, type != Rig::Pro);
    }
}

TEST(Filters, RatesAbove192000RunAsThat)
{
    Rig at384(Rig::Pro, 384000.0);
    Rig at192(Rig::Pro, 192000.0);
    const Signal x = noise(2000, 0.5);
    for (Rig* rig : {&at384, &at192}) {
        engage(*rig);
        rig->set(Rig::LpfFreq, 1.0);
    }
    EXPECT_EQ(at384.run(x), at192.run(x));
    EXPECT_EQ(at384.meter(1), at192.meter(1));
}

TEST(Filters, SilenceSplitsAndReset)
{
    for (int type : {Rig::Basic, Rig::Pro, Rig::SideChain}) {
        Rig rig(type, 96000.0);
        engage(rig);
        EXPECT_EQ(peakOf(rig.run(Signal(1000, 0.0))), 0.0);
        const Signal x = noise(4096, 0.5);
        const Channels in{x, x, x, x};
        const Channels whole = rig.run(in, 64);
        const std::array meters{rig.meter(0), rig.meter(1)};
        for (std::size_t block : {1U, 7U, 640U}) {
            rig.module.reset();
            EXPECT_EQ(rig.meter(0), 0.0);
            EXPECT_EQ(rig.run(in, block), whole) << block;
            EXPECT_NEAR(rig.meter(0), meters[0], 1e-12); // block meters agree but for rounding
            EXPECT_NEAR(rig.meter(1), meters[1], 1e-12);
        }
        rig.module.resetMeters();
        EXPECT_EQ(rig.meter(1), 0.0);
    }
}

TEST(Filters, RecoverFromHugeInput)
{
    Rig hit(Rig::Pro);
    Rig clean(Rig::Pro);
    engage(hit);
    engage(clean);
    hit.run(noise(5000, 1e6));
    clean.run(Signal(5000, 0.0));
    const Signal x = noise(44100, 0.5, 5);
    const double left = largestDifference(hit.run(x), clean.run(x), 22050);
    std::printf("half a second after 1e6: %.1e from the undisturbed filters\n", left);
    EXPECT_LT(left, 1e-9);
    EXPECT_LT(peakOf(hit.run(Signal(44100 * 2, 0.0)), 44100), 1e-20);
}

TEST(Filters, StayFiniteUnderWildAutomation)
{
    double peak = 0.0;
    for (double rate : {44100.0, 192000.0}) {
        Rig rig(Rig::Pro, rate);
        peak = std::max(peak, rig.hammer(20000, 16, 11));
    }
    std::printf("peak under automation with 1e6 at the input: %.2e\n", peak);
    EXPECT_TRUE(std::isfinite(peak));
}

} // namespace
} // namespace velmora::test
