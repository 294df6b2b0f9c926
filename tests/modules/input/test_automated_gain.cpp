#include "tests/modules/input/input_rig.h"

#include <gtest/gtest.h>

#include <cstdio>

namespace velmora::test {
namespace {

constexpr double kTop = 31.62277823; // 10 ^ 1.5000000223517418

struct Mode {
    double rms;
    double upDown;
};

InputRig automatic(Mode mode, double reference)
{
    InputRig rig;
    rig.set(InputRig::kRefLevel, reference);
    rig.set(InputRig::kDetect, mode.rms);
    rig.set(InputRig::kUpDown, mode.upDown);
    rig.set(InputRig::kAutoIn, 1.0);
    return rig;
}

double settledPeak(InputRig& rig, double amplitude)
{
    return peak(rig.run(sine(amplitude, 997.0, 4.0)), static_cast<std::size_t>(3.5 * kRate));
}

TEST(AutomatedGain, BringsASineToTheReference)
{
    for (const double rms : {0.0, 1.0}) {
        for (const double upDown : {0.0, 1.0}) {
            InputRig rig = automatic({rms, upDown}, 0.6); // -12 dB
            const double level = db(settledPeak(rig, 0.9));
            std::printf("%s, %s: sine at -0.9 dB settles at %.2f dB\n", rms > 0 ? "rms" : "peak",
                        upDown > 0 ? "up&down" : "down", level);
            // RMS reads a sine at twice its peak, plus the little that the detector overshoots.
            EXPECT_NEAR(level, rms > 0 ? -18.0 : -12.0, 0.1);
            const double quiet = settledPeak(rig, 0.09);
            EXPECT_NEAR(db(quiet), level - 20.0, 0.02) << "it remembers the loudest";
        }
    }
}

TEST(AutomatedGain, OnlyUpAndDownRaisesAQuietSignal)
{
    InputRig down = automatic({0.0, 0.0}, 0.4), both = automatic({0.0, 1.0}, 0.4);
    EXPECT_NEAR(settledPeak(down, 0.01), 0.01, 1e-9);
    EXPECT_NEAR(db(settledPeak(both, 0.01)), -18.0, 0.01);
    InputRig faint = automatic({0.0, 1.0}, 0.4);
    EXPECT_NEAR(settledPeak(faint, 1e-5), 1e-5 * kTop, 1e-9) << "held at +30 dB";
    InputRig loud = automatic({0.0, 0.0}, 0.0);
    EXPECT_NEAR(settledPeak(loud, 100.0), 100.0 / kTop, 1e-5) << "held at -30 dB";
}

TEST(AutomatedGain, RisesByGlideAndFallsAtOnce)
{
    InputRig rig = automatic({0.0, 1.0}, 0.5);
    EXPECT_EQ(rig.run(silence(0.1)).back(), 0.0);
    EXPECT_DOUBLE_EQ(rig.meter(3), 0.5) << "silence asks for nothing";

    // Groups of sixteen move once more at their start.
    const double c = 1.0 - std::pow(0.1091012, 1.0 / (kRate * 0.2 * 0.0625));
    const Signal out = rig.run(Signal(64, 1e-4));
    double gain = 1.0;
    for (std::size_t i = 0; i < out.size(); ++i) {
        const double target = i == 0 ? 1.0 : kTop;
        if (i % 16 == 0) gain += (target - gain) * c;
        gain += (kTop - gain) * c;
        ASSERT_NEAR(out[i], gain * 1e-4, 1e-12);
    }
    EXPECT_EQ(rig.meter(3), 1.0);
    EXPECT_NEAR(rig.run(Signal(64, 1.0)).front(), std::pow(10.0, -0.75), 1e-12);
}

TEST(AutomatedGain, TheGainKnobReseedsAndSwitchingOffKeepsTheGain)
{
    InputRig rig = automatic({0.0, 0.0}, 0.4);
    const double found = settledPeak(rig, 0.9) / 0.9;
    rig.set(InputRig::kAutoIn, 0.0);
    EXPECT_NEAR(rig.run(Signal(64, 0.5)).back() / 0.5, found, 1e-3 * found);

    rig.set(InputRig::kAutoIn, 1.0);
    rig.set(InputRig::kGain, 0.6);
    EXPECT_NEAR(rig.meter(3), 0.6, 1e-9);
    EXPECT_NEAR(peak(rig.run(sine(0.001, 997.0, 1.0)), 40000), 0.001 * std::pow(10.0, 0.3), 1e-6);
    rig.module->reset();
    EXPECT_NEAR(rig.meter(3), 0.6, 1e-9) << "what it learned outlives a reset";
}

TEST(AutomatedGain, StereoTakesTheLouderChannelForBoth)
{
    InputRig rig = automatic({0.0, 0.0}, 0.4);
    Signal left = sine(0.2, 500.0, 1.0), right = sine(0.8, 500.0, 1.0);
    AudioRecord record;
    for (std::size_t at = 0; at + 64 <= left.size(); at += 64) {
        record.channels[0] = left.data() + at;
        record.channels[1] = right.data() + at;
        rig.module->processStereo(record, record, 64);
    }
    left.resize(44032);
    right.resize(44032);
    EXPECT_NEAR(db(peak(right, 40000)), -18.0, 0.01);
    EXPECT_NEAR(db(peak(left, 40000)), -18.0 - 12.0412, 0.01);
    EXPECT_GT(rig.meter(0), 0.6);
}

} // namespace
} // namespace velmora::test
