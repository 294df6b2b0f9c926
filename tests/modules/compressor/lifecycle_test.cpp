#include "tests/modules/compressor/compressor_rig.h"

#include <gtest/gtest.h>

#include <random>
#include <utility>

namespace velmora::test {
namespace {

using Rig = CompressorRig;

void expectPassesThrough(Rig& rig)
{
    const Signal x = rig.sine(0.1, 0.9);
    EXPECT_EQ(rig.run(x), x);
    EXPECT_EQ(rig.read(Rig::GainReduction), 0.0);
    rig.module.resetMeters();
    rig.run(x);
    EXPECT_EQ(rig.read(Rig::InLevel), rig.read(Rig::OutLevel));
    EXPECT_GT(rig.read(Rig::OutLevel), 0.5);
}

TEST(Lifecycle, TypeChangesKeepEnvelopesAndTypeZeroPasses)
{
    Rig rig(Vca);
    rig.run(rig.sine(0.3, 1.0));
    const double held = rig.gain();
    ASSERT_LT(held, 0.8);
    rig.set(Rig::Type, 0.0);
    expectPassesThrough(rig);
    rig.set(Rig::Type, 2.0 / 15.0);
    rig.run(rig.silence(0.1));
    EXPECT_GT(rig.gain(), 0.99); // the FET has heard nothing yet
    for (int type : {3, 4, 15}) {
        rig.set(Rig::Type, type / 15.0);
        rig.run({0.0});
        EXPECT_NEAR(rig.gain(), held, 0.001) << type;
    }
}

TEST(Lifecycle, DeactivateClearsDetectorsActivateOnlyTheMeter)
{
    for (int variant : kVariants) {
        Rig rig(variant);
        rig.set(Rig::Threshold, 0.1);
        rig.module.reset();
        const Signal loud = rig.sine(0.3, 1.0);
        rig.run(loud);
        const double held = rig.gain();
        ASSERT_LT(held, 0.5);
        rig.module.activate();
        EXPECT_EQ(rig.read(Rig::GainReduction), 0.0);
        rig.run({0.0});
        EXPECT_NEAR(rig.gain(), held, 0.01);
        rig.module.deactivate();
        expectPassesThrough(rig);
        rig.module.activate();
        rig.run({0.0}); // the key's high-pass still rings
        EXPECT_GT(rig.gain(), 0.9);
    }
}

TEST(Lifecycle, ResetStartsAfresh)
{
    for (int variant : kVariants) {
        Rig used(variant);
        Rig fresh(variant);
        used.run(used.sine(0.3, 1.0));
        used.module.reset();
        EXPECT_EQ(used.read(Rig::GainReduction), 0.0);
        EXPECT_EQ(used.read(Rig::InLevel) + used.read(Rig::OutLevel), 0.0);
        const Signal x = used.sine(0.3, 0.7, 300.0);
        EXPECT_EQ(used.run(x), fresh.run(x));
        used.module.resetMeters();
        EXPECT_EQ(used.read(Rig::GainReduction) + used.read(Rig::InLevel), 0.0);
    }
}

TEST(Lifecycle, SilenceStaysSilent)
{
    for (int variant : kVariants) {
        Rig rig(variant);
        rig.set(Rig::Threshold, 0.0);
        rig.set(Rig::Ratio, 1.0);
        rig.set(Rig::Makeup, 1.0);
        rig.set(Rig::Release, 0.0);
        rig.module.reset();
        for (double v : rig.run(rig.silence(2.0))) ASSERT_EQ(v, 0.0);
        EXPECT_LT(rig.read(Rig::GainReduction), 0.001);
    }
}

TEST(Lifecycle, BlockSplitsDontShow)
{
    for (int variant : kVariants) {
        const auto render = [variant](std::size_t piece) {
            Rig rig(variant, 48000.0);
            rig.set(Rig::Threshold, 0.2);
            rig.set(Rig::HighPass, 0.3); // glides and a moving envelope on the way
            Signal y = rig.run(rig.sine(0.2, 0.8), {}, piece);
            y.push_back(rig.read(Rig::GainReduction));
            return std::pair{y, Signal{rig.read(Rig::InLevel), rig.read(Rig::OutLevel)}};
        };
        const auto [whole, levels] = render(64);
        for (std::size_t piece : {1U, 3U, 37U, 128U, 4096U}) {
            const auto [y, otherLevels] = render(piece);
            EXPECT_EQ(y, whole);
            for (std::size_t m : {0U, 1U})
                EXPECT_NEAR(otherLevels[m], levels[m], 1e-12); // taken by the block
        }
    }
}

// The gain comes back after the loudest key the strip lets in, at any setting of the times.
TEST(Lifecycle, RecoversFromLoudKeys)
{
    for (int variant : kVariants)
        for (double peak : {1.0, 30.0, 1e6})
            for (double release : {0.0, 1.0}) {
                Rig rig(variant);
                rig.set(Rig::Threshold, 0.0);
                rig.set(Rig::Release, release);
                rig.set(Rig::Ratio, 1.0);
                rig.module.reset();
                for (int burst = 0; burst < 20; ++burst) {
                    for (double v : rig.run(rig.sine(0.02, peak, 173.0)))
                        ASSERT_LE(std::fabs(v), 1.001 * peak);
                    rig.run(rig.silence(0.003));
                }
                ASSERT_TRUE(rig.gain() >= 0.0 && rig.gain() <= 1.0);
                rig.run(rig.silence(30.0));
                std::printf("%s release %.0f after a key of %.0e: %.3f dB\n",
                            kVariantNames[static_cast<unsigned>(variant)], release, peak, toDb(rig.gain()));
                EXPECT_GT(toDb(rig.gain()), -1.0);
            }
}

TEST(Lifecycle, StaysFiniteUnderRandomAutomation)
{
    std::mt19937 random(11);
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    Rig rig(Opto);
    double peak = 0.0;
    for (int block = 0; block < 20000; ++block) {
        rig.set(static_cast<std::uint32_t>(24.0 * unit(random)), unit(random) < 0.3 ? 1.0 : unit(random));
        rig.set(Rig::Type, (1.0 + static_cast<int>(3.0 * unit(random))) / 15.0);
        if (block % 97 == 0) rig.module.setSampleRate(kRates[block % 3U]);
        const double level = std::pow(10.0, 12.0 * unit(random) - 6.0);
        Signal x(64);
        Signal key(64);
        for (double& v : x) v = (2.0 * unit(random) - 1.0) * level;
        for (double& v : key) v = (2.0 * unit(random) - 1.0) * 1e6;
        for (double v : rig.run(x, key)) {
            ASSERT_TRUE(std::isfinite(v)) << block;
            peak = std::max(peak, std::fabs(v));
        }
        for (std::uint32_t meter : {0U, 1U}) ASSERT_TRUE(std::isfinite(rig.read(meter)));
        ASSERT_TRUE(rig.gain() >= 0.0 && rig.gain() <= 1.0);
    }
    std::printf("peak under automation with 1e6 at the input: %.3e\n", peak);
    EXPECT_LT(peak, 1.001e7); // make-up gain at most
}

TEST(Lifecycle, NoNumberAtTheInputIsSilence)
{
    for (int variant : kVariants) {
        Rig rig(variant);
        EXPECT_EQ(rig.run({std::nan(""), 0.0}), Signal(2));
        EXPECT_NEAR(rig.run(rig.sine(0.01, 1e-4))[20] / rig.sine(0.01, 1e-4)[20], 1.0, 0.01);
    }
}

} // namespace
} // namespace velmora::test
