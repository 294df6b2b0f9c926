#include "params/laws/output_laws.h"
#include "tests/modules/output/output_rig.h"
#include "tests/plain/master_control.h"
#include "tests/support/gap.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdio>
#include <limits>
#include <random>
#include <thread>

namespace velmora::test {
namespace {

using Rig = OutputRig;

constexpr double kScale = 0.316228;
constexpr double kMinusTenDb = 0.66088; // fader value

TEST(MasterMeter, PeakJumpsUpAndFallsSlowly)
{
    for (double rate : {44100.0, 192000.0}) {
        Rig rig(rate);
        rig.run({0.2, -0.8, 0.3});
        EXPECT_NEAR(rig.read(Rig::PeakL), 0.8 * kScale, 1e-4);
        EXPECT_EQ(rig.read(Rig::PeakL), rig.read(Rig::PeakR));
        rig.run(rig.constant(1.2, 0.0));
        const double left = rig.read(Rig::PeakL) / (0.8 * kScale);
        std::printf("peak at %.0f Hz after 1.2 s: %.5f of its value\n", rate, left);
        EXPECT_NEAR(left, 0.109, 5e-4);
        rig.run(rig.constant(300.0 * 44100.0 / rate, 0.0));
        EXPECT_GE(rig.read(Rig::PeakL), 0.0);
    }
}

// A peak inside a block stays readable for the whole block that follows it.
TEST(MasterMeter, ReadingHoldsTheBlockStart)
{
    Rig rig;
    rig.run({0.9});
    const double before = rig.read(Rig::PeakL);
    rig.run(std::vector<double>(64, 0.0));
    EXPECT_EQ(rig.read(Rig::PeakL), before);
    rig.run(std::vector<double>(64, 0.0));
    EXPECT_LT(rig.read(Rig::PeakL), before);
}

TEST(MasterMeter, ASineReadsTheSameOnRmsAndPeak)
{
    for (double rate : {44100.0, 96000.0, 384000.0}) {
        Rig rig(rate);
        rig.run(rig.sine(3.0, 0.5));
        const double peak = rig.read(Rig::PeakL);
        const double rms = rig.read(Rig::RmsL);
        std::printf("sine 0.5 at %.0f Hz: peak %.6f, rms %.6f\n", rate, peak, rms);
        EXPECT_NEAR(peak, 0.5 * kScale, 1.5e-4); // it falls for half a period between two crests
        EXPECT_NEAR(rms, peak, 1.5e-4);
        EXPECT_EQ(rms, rig.read(Rig::RmsR));
    }
}

// The mean square comes through two poles at 1 Hz: after t seconds of a constant it has made
// 1 - (1 + w t) exp(-w t) of the step. The same must hold right after construction.
TEST(MasterMeter, RmsRisesLikeTwoPolesAtOneHertz)
{
    const auto rise = [](StripEffectOutput& module, int samples) {
        std::vector<double> x(static_cast<std::size_t>(samples), 0.5);
        AudioRecord record;
        record.channels[0] = record.channels[1] = x.data();
        module.processMono(record, record, samples);
        double reading = 0.0;
        module.getMeter(kMeters + Rig::RmsL, &reading);
        return std::pow(reading / (0.5 * 1.4142 * kScale), 2.0);
    };
    for (double t : {0.05, 0.2, 0.5}) {
        const double w = 2.0 * std::numbers::pi * t;
        const double expected = 1.0 - (1.0 + w) * std::exp(-w);
        StripEffectOutput constructed(kWindow, kMeters, 672);
        Rig resetAt96k(96000.0);
        resetAt96k.module.reset();
        const double first = rise(constructed, static_cast<int>(t * 44100.0));
        const double second = rise(resetAt96k.module, static_cast<int>(t * 96000.0));
        std::printf("mean square after %.2f s: %.4f and %.4f of the step, two poles give %.4f\n", t, first,
                    second, expected);
        EXPECT_NEAR(first, expected, 1e-3);
        EXPECT_NEAR(second, expected, 1e-3);
    }
}

TEST(MasterMeter, MeasurementPointChoosesTheSideOfTheFader)
{
    for (int point = 0; point < 4; ++point) {
        Rig rig;
        rig.set(Rig::Gain, kMinusTenDb);
        rig.set(Rig::MeasurementPoint, point / 3.0);
        rig.module.reset();
        rig.run(rig.constant(3.0, 0.5));
        const double gain =
            point > 1 ? std::pow(10.0, (110.0 * std::pow(kMinusTenDb, 0.333) - 100.0) / 20.0) : 1.0;
        EXPECT_NEAR(rig.read(Rig::PeakL), 0.5 * gain * kScale, 1e-5) << point; // equal samples let it fall
        EXPECT_NEAR(rig.read(Rig::RmsL), 0.5 * gain * 1.4142 * kScale, 1e-4) << point;
    }
}

TEST(MasterMeter, ThreeSamplesInARowClip)
{
    const auto clips = [](const std::vector<double>& x) {
        Rig rig;
        rig.run(x);
        EXPECT_EQ(rig.read(Rig::ClipR), 0.0); // the mono form leaves the right one dark
        return rig.read(Rig::ClipL) == 1.0;
    };
    EXPECT_FALSE(clips({1.0, -1.0, 0.999, 1.0, 1.0}));
    EXPECT_TRUE(clips({1.0, -1.0, 1.0}));

    // Runs go on over block borders; the reading fades and stays at one half until it is cleared.
    Rig rig;
    for (int block = 0; block < 3; ++block) rig.run({1.5});
    for (int read = 0; read < 3; ++read) EXPECT_EQ(rig.read(Rig::ClipL), 1.0);
    for (int read = 1; read <= 10; ++read) EXPECT_NEAR(rig.read(Rig::ClipL), 1.0 - 0.05 * read, 1e-12);
    for (int read = 0; read < 20; ++read) EXPECT_EQ(rig.read(Rig::ClipL), 0.5);
    rig.run({1.5});
    EXPECT_EQ(rig.read(Rig::ClipL), 1.0);
}

TEST(MasterMeter, ClipIsClearedByItsIds)
{
    for (std::uint32_t id : {kWindow + 4, kWindow + 6, kWindow + 7, kMeters + 6, kMeters + 7}) {
        Rig rig;
        rig.run({1.0, 1.0, 1.0});
        rig.module.setParameter(id, 0.37);
        EXPECT_EQ(rig.read(Rig::ClipL), 0.0) << id;
        rig.run({1.0, 1.0});
        EXPECT_EQ(rig.read(Rig::ClipL), 0.0) << id; // the run starts again
        rig.run({1.0});
        EXPECT_EQ(rig.read(Rig::ClipL), 1.0) << id;
    }
    Rig rig;
    rig.run({1.0, 1.0, 1.0});
    rig.module.setParameter(kMeters + 5, 0.0);
    rig.module.setParameter(kWindow + 5, 0.0);
    EXPECT_EQ(rig.read(Rig::ClipL), 1.0);
}

TEST(MasterMeter, NeverReadsAboveOne)
{
    Rig rig;
    rig.run(rig.constant(3.0, 10.0));
    EXPECT_EQ(rig.read(Rig::PeakL), 1.0);
    EXPECT_EQ(rig.read(Rig::RmsL), 1.0);
    double untouched = 0.125;
    rig.module.getMeter(kMeters + 8, &untouched);
    rig.module.getMeter(kMeters - 1, &untouched);
    EXPECT_EQ(untouched, 0.125);
}

TEST(MasterMeter, FreezesWithTypeOff)
{
    Rig rig;
    rig.run(rig.sine(0.5, 0.5));
    rig.run({1.0, 1.0, 1.0});
    const double peak = rig.read(Rig::PeakL);
    const double rms = rig.read(Rig::RmsL);
    rig.set(Rig::Type, 0.0);
    rig.run(rig.constant(1.0, 0.0));
    EXPECT_EQ(rig.read(Rig::PeakL), peak);
    EXPECT_EQ(rig.read(Rig::RmsL), rms);
    EXPECT_EQ(rig.read(Rig::ClipL), 1.0);
    EXPECT_LT(rig.read(Rig::OutLevel), 0.1);
}

TEST(MasterMeter, ResetsClearWhatTheyName)
{
    const auto fed = [](Rig& rig) {
        rig.run(rig.sine(0.5, 0.5));
        rig.run({1.0, 1.0, 1.0});
    };
    const auto dark = [](Rig& rig, std::uint32_t first) {
        for (std::uint32_t meter = first; meter < 8; ++meter) EXPECT_EQ(rig.read(meter), 0.0) << meter;
    };
    Rig rig;
    fed(rig);
    rig.module.resetMeters();
    dark(rig, 0);
    fed(rig);
    rig.module.reset();
    dark(rig, 0);
    rig.run({0.0});
    dark(rig, 0); // the RMS filter is empty too
    fed(rig);
    rig.module.setSampleRate(96000.0);
    dark(rig, Rig::PeakL);
    EXPECT_GT(rig.read(Rig::InLevel), 0.1); // level meters keep going
}

/// Noise in swells and gaps, over full scale in places, with a few samples that are no numbers.
std::vector<double> roughSignal(std::size_t length)
{
    std::mt19937 random(3);
    std::uniform_real_distribution<double> sample(-1.0, 1.0);
    std::vector<double> x(length);
    for (std::size_t i = 0; i < length; ++i)
        if (i / 5000 % 4 != 2) x[i] = (1.1 + std::sin(0.0007 * static_cast<double>(i))) * sample(random);
    x[length / 3] = std::numeric_limits<double>::quiet_NaN();
    x[length / 2] = std::numeric_limits<double>::infinity();
    std::fill_n(x.begin() + static_cast<std::ptrdiff_t>(length / 4), 300, 1e-310);
    return x;
}

TEST(MasterControl, BlocksGiveTheSamplesAndReadingsOfThePlainForm)
{
    double worst = 0.0;
    for (const double rate : {44100.0, 384000.0})
        for (const bool afterFader : {false, true}) {
            Rig rig(rate);
            plain::MasterControl expected(rate);
            rig.set(Rig::MeasurementPoint, afterFader ? 1.0 : 0.0);
            const std::vector<double> x = roughSignal(200000);
            double value = 0.5;
            std::size_t length = 0;
            for (std::size_t at = 0; at < x.size(); at += length) {
                length = std::min(length % 67 + 1, x.size() - at);
                // Moves for a while, then rests until the smoother stands still.
                value = at < 20000 ? 0.4 + 0.00001 * static_cast<double>(at % 7000) : 0.75;
                rig.set(Rig::Gain, value);
                const std::vector<double> block(x.begin() + static_cast<std::ptrdiff_t>(at),
                                                x.begin() + static_cast<std::ptrdiff_t>(at + length));
                const std::vector<double> output = rig.run(block, length);
                const double peakBefore = expected.peak;
                const double rmsBefore = expected.rms;
                for (std::size_t i = 0; i < length; ++i) {
                    const double y = expected.process(block[i], output::faderGain(value), afterFader);
                    ASSERT_TRUE(output[i] == y || (std::isnan(y) && std::isnan(output[i]))) << at + i;
                }
                const auto compare = [&](Rig::Reading meter, double level) {
                    const double reading = rig.read(meter);
                    const double target = std::clamp(level * kScale, 0.0, 1.0);
                    if (std::isnan(target))
                        ASSERT_TRUE(std::isnan(reading)) << at;
                    else
                        worst = std::max(worst, gapBetween(reading, target));
                };
                compare(Rig::PeakL, std::max(expected.peak, peakBefore));
                compare(Rig::RmsL, 1.4142 * std::max(expected.rms, rmsBefore));
                ASSERT_EQ(rig.read(Rig::ClipL) > 0.0, expected.clipped) << at;
            }
        }
    std::printf("worst reading %.2g\n", worst);
    EXPECT_LT(worst, 1e-12);
}

// The countdown by the reader must never swallow a clip that comes in between.
TEST(MasterMeter, ReadingRacesWithClipping)
{
    Rig rig;
    std::atomic<bool> stop{false};
    std::thread reader([&] {
        while (!stop.load())
            for (std::uint32_t meter = 0; meter < 8; ++meter) {
                const double value = rig.read(meter);
                EXPECT_TRUE(value >= 0.0 && value <= 10.0);
            }
    });
    const std::vector<double> loud(64, 2.0);
    for (int round = 0; round < 3000; ++round) {
        rig.run(loud);
        if (round % 16 == 0) rig.set(Rig::Clear, 0.0);
    }
    stop = true;
    reader.join();
    rig.run(loud);
    for (int read = 0; read < 3; ++read) EXPECT_EQ(rig.read(Rig::ClipL), 1.0);
}

} // namespace
} // namespace velmora::test
