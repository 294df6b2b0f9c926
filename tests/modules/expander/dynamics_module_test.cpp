#include "tests/modules/expander/expander_rig.h"

#include <gtest/gtest.h>

#include <cstdio>

namespace velmora::test {
namespace {

using Rig = ExpanderRig;

constexpr int kTypes[]{Rig::Expander, Rig::Gate, Rig::Ducker};

// A lively setting: filtered key, hold, half a floor.
void engage(Rig& rig)
{
    rig.set(Rig::Hold, 0.15);
    rig.set(Rig::Shape, 0.6);
    rig.set(Rig::Range, 0.4);
    rig.set(Rig::Release, 0.2);
    rig.set(Rig::HpfIn, 1.0);
    rig.set(Rig::HpfFreq, 0.3);
    rig.set(Rig::LpfIn, 1.0);
    rig.set(Rig::LpfFreq, 0.8);
    rig.module.reset();
}

// Bursts that cross the threshold both ways.
Signal bursts(std::size_t count)
{
    Signal x = noise(count, 0.8, 3);
    for (std::size_t i = 0; i < count; ++i)
        if (i / 700 % 2 == 1) x[i] *= 0.01;
    return x;
}

// Heard through the monitor: four poles with Q 0.7 each side, by the analogue prototype.
TEST(Key, FiltersHaveFourPoles)
{
    for (double rate : {44100.0, 96000.0})
        for (bool low : {false, true})
            for (double octaves : {-2.0, 0.0, 2.0}) {
                Rig rig(Rig::Gate, rate);
                const double corner = (low ? 50.0 : 20.0) * std::pow(400.0, 0.5);
                rig.set(low ? Rig::LpfIn : Rig::HpfIn, 1.0);
                rig.set(low ? Rig::LpfFreq : Rig::HpfFreq, 0.5);
                rig.set(Rig::Monitor, 1.0);
                rig.module.reset();
                const double hz = corner * std::exp2(octaves);
                const Signal x = Rig::sine(rig.samples(1.0), 0.5, hz, rate);
                const double gain = peakOf(rig.run(x), rig.samples(0.5)) / 0.5;
                const double o =
                    std::tan(std::numbers::pi * hz / rate) / std::tan(std::numbers::pi * corner / rate);
                const double section = (low ? 1.0 : o * o) / std::hypot(1.0 - o * o, o / 0.7);
                std::printf("%s %.0f Hz at %.0f Hz: %.3f dB at %.0f Hz\n", low ? "LPF" : "HPF", corner, rate,
                            toDb(gain), hz);
                EXPECT_NEAR(gain, section * section, 2e-3 * section * section);
            }
}

TEST(Key, FilterKeepsARumbleFromOpeningTheGate)
{
    Rig rig(Rig::Gate);
    rig.set(Rig::Release, 0.0);
    const Signal rumble = Rig::sine(44100, 0.5, 40.0, 44100.0);
    EXPECT_GT(peakOf(rig.run(rumble), 20000), 0.4);
    rig.set(Rig::HpfIn, 1.0);
    rig.set(Rig::HpfFreq, 0.5);                       // 400 Hz
    EXPECT_LT(peakOf(rig.run(rumble), 40000), 1e-28); // the flush leaves no denormals behind
}

TEST(Key, ComesFromTheChosenPair)
{
    const Signal x(20000, 0.5);
    const Signal none(20000, 0.0);
    const auto gain = [&](int type, double source) {
        Rig rig(type);
        rig.set(Rig::Release, 0.0);
        rig.set(Rig::SideChain, source);
        const Channels out = rig.run({x, none, none, x});
        EXPECT_EQ(out[0], out[1]);
        EXPECT_EQ(out[2], none);
        return out[0].back() / 0.5;
    };
    EXPECT_NEAR(gain(Rig::Gate, 0.0), 1.0, 1e-9);
    EXPECT_EQ(gain(Rig::Gate, 1.0), 0.0);           // nothing connected: shut
    EXPECT_NEAR(gain(Rig::Ducker, 1.0), 1.0, 1e-9); // and open
    EXPECT_NEAR(gain(Rig::Ducker, 0.0), 0.0, 1e-9);
}

TEST(Key, MonitorIsHeardWithoutReduction)
{
    const Signal x = noise(2000, 0.5, 1);
    const Signal key = noise(2000, 0.02, 2);
    for (int type : kTypes) {
        Rig rig(type);
        rig.set(Rig::SideChain, 1.0);
        rig.set(Rig::Monitor, 1.0);
        EXPECT_EQ(rig.run({x, x, key, key})[0], key);
        EXPECT_EQ(rig.meter(Rig::kReduction), 0.0);
        EXPECT_GT(rig.meter(0), 0.1); // the input is still metered
        EXPECT_LT(rig.meter(1), 0.03);
    }
}

TEST(Dynamics, TypeChangeKeepsTheEnvelope)
{
    Rig rig(Rig::Gate);
    rig.set(Rig::Release, 1.0);
    const double open = rig.steadyGain(0.5, 0.5);
    rig.setType(Rig::Ducker);
    const double next = rig.gains(Signal(1, 0.0))[0];
    EXPECT_NEAR(next, open, 1e-4);
}

TEST(Dynamics, ResetShutsAndDefaultsHoldTheirValues)
{
    for (int type : kTypes) {
        Rig rig(type);
        rig.set(Rig::Range, 0.5);
        rig.steadyGain(0.0);
        rig.steadyGain(0.5, 0.1);
        rig.module.reset();
        EXPECT_EQ(rig.meter(Rig::kReduction), 1.0);
        EXPECT_LT(rig.gains(Signal(1, 0.5))[0], 0.27); // starts at the floor
        rig.module.resetMeters();
        EXPECT_EQ(rig.meter(Rig::kReduction), 0.0);
    }
    // Threshold -30 dB, ratio 1:1.7, range 0.
    Rig rig(Rig::Expander);
    rig.module.loadDefaults();
    EXPECT_NEAR(toDb(rig.steadyGain(0.01, 10.0)), -0.7 * 10.0, 0.02);
}

// A rate change alone carries every time and corner over.
TEST(Dynamics, FollowTheSampleRate)
{
    const Signal x = bursts(8000);
    for (int type : kTypes)
        for (double rate : {48000.0, 384000.0}) {
            Rig moved(type, 96000.0);
            Rig fresh(type, rate);
            engage(moved);
            engage(fresh);
            moved.module.setSampleRate(rate);
            moved.module.reset();
            EXPECT_EQ(moved.run(x), fresh.run(x)) << type << ", " << rate;
            for (std::uint32_t m = 0; m < 3; ++m) EXPECT_EQ(moved.meter(m), fresh.meter(m));
        }
}

TEST(Dynamics, PassThroughReadsNoReduction)
{
    for (int type : {0, 1, 4, 15}) {
        Rig rig(Rig::Gate);
        rig.run(Signal(100, 0.0));
        EXPECT_EQ(rig.meter(Rig::kReduction), 1.0);
        rig.setType(type);
        if (type == Rig::Expander)
            rig.module.deactivate();
        else
            EXPECT_EQ(rig.meter(Rig::kReduction), 0.0); // at once: the engine may not call it again
        const Channels in{bursts(500), noise(500, 2.0, 2), noise(500, 0.5, 3), noise(500, 0.5, 4)};
        EXPECT_EQ(rig.run(in), in);
        EXPECT_EQ(rig.meter(Rig::kReduction), 0.0);
        EXPECT_EQ(rig.meter(0), rig.meter(1));
        EXPECT_EQ(rig.run({Signal(4000, 3.0), Signal(4000, 3.0), in[2], in[3]})[0].back(), 3.0);
        EXPECT_EQ(rig.meter(1), 1.0); // readings stay within 0..1
        rig.module.activate();
    }
}

TEST(Dynamics, StereoFormLinksTheChannels)
{
    for (int type : kTypes) {
        Rig stereo(type);
        Rig mono(type);
        engage(stereo);
        engage(mono);
        stereo.set(Rig::HpfIn, 0.0);
        stereo.set(Rig::LpfIn, 0.0);
        mono.set(Rig::HpfIn, 0.0);
        mono.set(Rig::LpfIn, 0.0);
        const Signal x = bursts(8000);
        Signal quiet = x;
        for (double& v : quiet) v *= 0.125;
        const Channels out = stereo.run({quiet, x, quiet, x}, 64, Form::Stereo);
        const Signal expected = mono.run(x);
        EXPECT_EQ(out[1], expected);
        for (std::size_t i = 0; i < x.size(); ++i) ASSERT_EQ(out[0][i], expected[i] * 0.125);
        EXPECT_EQ(stereo.meter(Rig::kReduction), mono.meter(Rig::kReduction));
    }
}

TEST(Dynamics, SilenceSplitsAndReset)
{
    for (int type : kTypes) {
        const Signal x = bursts(8192);
        const auto render = [&](std::size_t block) {
            Rig rig(type, 96000.0);
            engage(rig);
            EXPECT_EQ(peakOf(rig.run(Signal(5000, 0.0))), 0.0);
            rig.module.reset();
            const Signal out = rig.run({x, x, x, x}, block)[0];
            return std::pair(out, std::array{rig.meter(0), rig.meter(1), rig.meter(2)});
        };
        const auto [whole, meters] = render(64);
        for (std::size_t block : {1U, 7U, 640U}) {
            const auto [out, readings] = render(block);
            EXPECT_EQ(out, whole) << type << ", " << block;
            for (std::size_t m = 0; m < 2; ++m)
                EXPECT_NEAR(readings[m], meters[m], 1e-12); // block meters agree but for rounding
            EXPECT_EQ(readings[2], meters[2]);
        }
    }
}

TEST(Dynamics, RecoverFromHugeInput)
{
    for (int type : kTypes) {
        Rig hit(type);
        Rig clean(type);
        engage(hit);
        engage(clean);
        hit.run(noise(5000, 1e6));
        clean.run(Signal(5000, 0.0));
        const Signal x = bursts(44100 * 2);
        const double left = largestDifference(hit.run(x), clean.run(x), 44100);
        std::printf("type %d, a second after 1e6: %.1e from the undisturbed module\n", type, left);
        EXPECT_LT(left, 1e-9);
    }
}

TEST(Dynamics, StayFiniteUnderWildAutomation)
{
    double peak = 0.0;
    for (double rate : {44100.0, 384000.0}) {
        Rig rig(Rig::Gate, rate);
        peak = std::max(peak, rig.hammer(20000, 5, 17));
        EXPECT_GE(rig.meter(Rig::kReduction), 0.0);
        EXPECT_LE(rig.meter(Rig::kReduction), 1.0);
    }
    std::printf("peak under automation with 1e6 at the input: %.2e\n", peak);
    EXPECT_TRUE(std::isfinite(peak)); // a key filter sweeping up has much gain on its way
}

} // namespace
} // namespace velmora::test
