#include "tests/modules/limiter/limiter_rig.h"

#include "dsp/strip_biquad.h"

#include <gtest/gtest.h>

#include <cstdio>

namespace velmora::test {
namespace {

using namespace limiter;

// Level of one frequency in a signal's second half.
double amplitude(const Signal& signal, double hz, double rate)
{
    double re = 0.0;
    double im = 0.0;
    const std::size_t from = signal.size() / 2;
    for (std::size_t i = from; i < signal.size(); ++i) {
        const double phase = 2.0 * std::numbers::pi * hz * static_cast<double>(i) / rate;
        re += signal[i] * std::cos(phase);
        im += signal[i] * std::sin(phase);
    }
    return 2.0 * std::hypot(re, im) / static_cast<double>(signal.size() - from);
}

TEST(LimiterRouting, HighPassActsOnTheDetectorAlone)
{
    const Signal bass = sine(2.0, 50.0, 44100.0, 44100 * 2);
    for (std::int32_t type : {kOpto, kVca}) {
        LimiterRig flat(type);
        LimiterRig filtered(type);
        filtered.set(kHighPassOffset, 1.0);
        filtered.module.reset();
        const double limited = amplitude(flat.run(bass), 50.0, 44100.0);
        const double spared = amplitude(filtered.run(bass), 50.0, 44100.0);
        std::printf("type %d: 50 Hz at +6 dB leaves at %+.2f dB, with the high-pass at 1 kHz at %+.2f dB\n",
                    type, toDb(limited), toDb(spared));
        EXPECT_LT(toDb(limited), 3.0);
        EXPECT_NEAR(spared, 2.0, 1e-9);
    }
}

TEST(LimiterRouting, BrickWallIgnoresAttackHighPassAndLink)
{
    const Signal in = noise(3.0, 6400);
    LimiterRig plain(kBrickWall);
    LimiterRig moved(kBrickWall);
    moved.set(kAttackOffset, 0.1);
    moved.set(kHighPassOffset, 0.7);
    moved.set(kLinkOffset, 1.0);
    EXPECT_EQ(plain.run(in), moved.run(in));
}

TEST(LimiterRouting, ExternalKeyDrivesTheGainOfTheMainInput)
{
    for (const Variant& variant : kVariants) {
        LimiterRig rig(variant.type);
        rig.set(kSideChainOffset, 1.0);
        const Signal in = alternating(0.1, 44100);
        const double quiet = std::fabs(rig.run(in, constant(0.0, in.size())).back());
        const double ducked = std::fabs(rig.run(in, alternating(10.0, in.size())).back());
        std::printf("%-10s key off %+.2f dB, key at +20 dB %+.2f dB\n", variant.name, toDb(quiet / 0.1),
                    toDb(ducked / 0.1));
        EXPECT_NEAR(quiet, 0.1, 1e-5);
        EXPECT_LT(ducked, 0.02);
        EXPECT_GT(ducked, 0.005);
        rig.set(kSideChainOffset, 0.0);
        EXPECT_NEAR(std::fabs(rig.run(in, alternating(10.0, in.size())).back()) / 0.1,
                    std::fabs(LimiterRig(variant.type).run(in).back()) / 0.1, 0.2);
    }
}

TEST(LimiterRouting, MonitorPlaysWhatTheDetectorHears)
{
    const Signal in = noise(1.0, 3200, 3);
    const Signal key = noise(0.5, 3200, 4);

    LimiterRig wall(kBrickWall);
    wall.set(kSideChainOffset, 1.0);
    wall.set(kMonitorOffset, 1.0);
    wall.setOutputDb(12.0);
    EXPECT_EQ(wall.run(in, key), key);

    StripBiquad highPass(StripBiquadKind::HighPass, 1000.0, 0.5);
    highPass.setEnabled(true);
    highPass.setFrequency(1000.0);
    highPass.resetState();
    Signal filtered = in;
    highPass.runBlock(filtered.data(), static_cast<int>(filtered.size()));
    for (std::int32_t type : {kOpto, kVca}) {
        LimiterRig rig(type);
        rig.set(kHighPassOffset, 1.0);
        rig.set(kMonitorOffset, 1.0);
        rig.module.reset();
        EXPECT_EQ(rig.run(in), filtered);
    }

    // The saturator's key carries the pre-emphasis: 20 dB down below the shelf.
    LimiterRig saturator(kSaturator);
    saturator.set(kHighPassOffset, 1.0);
    saturator.set(kMonitorOffset, 1.0);
    saturator.module.reset();
    const double bass = amplitude(saturator.run(sine(1.0, 10.0, 44100.0, 44100)), 10.0, 44100.0);
    std::printf("saturator's key at 10 Hz: %+.2f dB\n", toDb(bass));
    EXPECT_NEAR(toDb(bass), -20.0, 0.1);
}

TEST(LimiterRouting, MonitorLeavesDetectorAndReductionGoing)
{
    for (const Variant& variant : kVariants) {
        LimiterRig plain(variant.type);
        LimiterRig monitored(variant.type);
        monitored.set(kMonitorOffset, 1.0);
        const Signal in = noise(3.0, 6400);
        plain.run(in);
        monitored.run(in);
        EXPECT_EQ(plain.reduction(), monitored.reduction());
        monitored.set(kMonitorOffset, 0.0);
        EXPECT_EQ(plain.run(in), monitored.run(in)) << variant.name;
    }
}

TEST(LimiterRouting, EmphasisSparesTheBass)
{
    const auto thirdHarmonic = [](double highPass) {
        LimiterRig rig(kSaturator);
        rig.setShape(3);
        rig.set(kSmoothOffset, 0.0);
        rig.set(kHighPassOffset, highPass);
        rig.module.reset();
        const Signal out = rig.run(sine(1.0, 50.0, 44100.0, 44100));
        return amplitude(out, 150.0, 44100.0) / amplitude(out, 50.0, 44100.0);
    };
    const double flat = thirdHarmonic(0.0);
    const double spared = thirdHarmonic(1.0);
    std::printf("third harmonic of 50 Hz at 0 dB: %.1f dB, shelves at 385 Hz %.1f dB\n", toDb(flat),
                toDb(spared));
    EXPECT_LT(toDb(spared / flat), -15.0);
}

} // namespace
} // namespace velmora::test
