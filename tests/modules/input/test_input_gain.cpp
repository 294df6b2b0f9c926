#include "tests/modules/input/input_rig.h"

#include <gtest/gtest.h>

#include <cstdio>

namespace velmora::test {
namespace {

TEST(InputGain, SettledGainIsTheKnobsDecibelsInSinglePrecision)
{
    for (const double v : {0.0, 0.25, 0.5, 0.7313, 1.0}) {
        InputRig rig;
        rig.set(InputRig::kGain, v);
        rig.module->reset();
        const Signal out = rig.run(Signal(64, 0.25));
        const double expected = std::pow(10.0, double(float(60.0 * v - 30.0)) / 20.0);
        EXPECT_NEAR(out.back() / 0.25, expected, 1e-13 * expected);
        EXPECT_EQ(out, rig.right);
    }
}

TEST(InputGain, GlidesExponentiallyAtTheSameSpeedInSecondsAtEveryRate)
{
    for (const double rate : {44100.0, 96000.0, 384000.0}) {
        InputRig rig(1, rate);
        rig.set(InputRig::kGain, 0.6);
        const Signal out = rig.run(Signal(4096, 1.0));
        const double target = std::pow(10.0, double(float(6.0)) / 20.0);
        for (const std::size_t n : {0ul, 100ul, 4095ul}) {
            const double left = std::pow(1.0 - 22.05 / rate, static_cast<double>(n + 1));
            EXPECT_NEAR(out[n], target + (1.0 - target) * left, 1e-10) << rate << " Hz, sample " << n;
        }
    }
}

TEST(InputGain, PolarityFlipCrossesZeroInEightMilliseconds)
{
    for (const double rate : {44100.0, 192000.0}) {
        InputRig rig(1, rate);
        rig.run(Signal(64, 1.0));
        rig.set(InputRig::kPhaseL, 1.0);
        const Signal out = rig.run(Signal(static_cast<std::size_t>(rate / 50), 1.0));
        const auto done = std::find(out.begin(), out.end(), -1.0) - out.begin();
        std::printf("polarity flip at %.0f Hz: %td samples, %.3f ms\n", rate, done,
                    1e3 * double(done) / rate);
        EXPECT_NEAR(double(done) / rate, 0.008, 2.0 / rate);
        for (std::size_t i = 1; i < out.size(); ++i)
            ASSERT_LE(std::fabs(out[i] - out[i - 1]), 250.0 / rate + 1e-12);
        rig.set(InputRig::kPhaseR, 1.0);
        EXPECT_EQ(rig.run(Signal(64, 1.0)).back(), -1.0) << "the right polarity isn't heard in mono";
        rig.set(InputRig::kPhaseL, 0.0);
        rig.module->reset();
        EXPECT_EQ(rig.run(Signal(64, 1.0)).front(), 1.0) << "reset lands on the target";
    }
}

TEST(InputGain, PlainGainTypeKnowsNoEmulation)
{
    InputRig plain(1), loaded(1);
    loaded.set(InputRig::kAnalog, 1.0);
    loaded.set(InputRig::kDrive, 1.0);
    loaded.set(InputRig::kNoiseIn, 1.0);
    loaded.set(InputRig::kNoiseLevel, 1.0);
    const Signal in = sine(0.5, 440.0, 0.1);
    EXPECT_EQ(plain.run(in), in);
    EXPECT_EQ(loaded.run(in), in);

    InputRig out(3);
    out.set(InputRig::kAnalog, 0.0);
    EXPECT_EQ(out.run(in), in) << "a console with its analog stage switched out";
}

TEST(InputGain, LevelMetersRunTwicePerSampleUnlessTheGainIsAutomatic)
{
    const double attack = 1.0 - std::pow(0.01, 1.0 / ((std::pow(101.0, 0.4) - 1.0) * kRate * 0.001));
    const auto rise = [attack](double steps) { return 0.5 * (1.0 - std::pow(1.0 - attack, steps)); };
    InputRig rig;
    rig.run(Signal(64, 0.5));
    EXPECT_NEAR(rig.meter(0), rise(128), 1e-11);
    EXPECT_NEAR(rig.meter(1), rise(128), 1e-11);
    EXPECT_NEAR(rig.meter(2), rise(64), 1e-11);

    InputRig automatic;
    automatic.set(InputRig::kAutoIn, 1.0);
    automatic.set(InputRig::kRefLevel, 1.0);
    automatic.set(InputRig::kDetect, 0.0);
    automatic.run(Signal(64, 0.5));
    EXPECT_NEAR(automatic.meter(0), rise(64), 1e-11);
    EXPECT_NEAR(automatic.meter(1), rise(64), 1e-11);
    EXPECT_DOUBLE_EQ(automatic.meter(3), 0.5);
    EXPECT_EQ(automatic.meter(5), -1.0) << "an unknown meter is left alone";

    rig.module->resetMeters();
    for (int offset = 0; offset < 5; ++offset) EXPECT_EQ(rig.meter(offset), offset == 3 ? 0.5 : 0.0);
}

TEST(InputGain, OffAndDeactivatedPassThroughMetered)
{
    const Signal in = sine(0.7, 440.0, 0.1);
    InputRig off(0);
    off.set(InputRig::kGain, 1.0);
    InputRig idle(2);
    idle.module->deactivate();
    for (InputRig* rig : {&off, &idle}) {
        EXPECT_EQ(rig->run(in), in);
        EXPECT_GT(rig->meter(0), 0.5);
        EXPECT_EQ(rig->meter(0), rig->meter(1));
    }
    idle.module->activate();
    EXPECT_NE(idle.run(in), in);
}

TEST(InputGain, DefaultsLeaveUnityGainAndMiddleDrive)
{
    InputRig rig(5), twin = InputRig::unit(rig.module->instanceIndex(), 5);
    for (int offset = InputRig::kGain; offset <= InputRig::kNoiseLevel; ++offset) rig.set(offset, 0.9);
    rig.module->loadDefaults();
    rig.module->reset();
    EXPECT_EQ(rig.run(sine(0.2, 440.0, 0.1)), twin.run(sine(0.2, 440.0, 0.1)));
}

} // namespace
} // namespace velmora::test
