#include "tests/modules/compressor/compressor_rig.h"
#include "tests/support/gap.h"

#include <gtest/gtest.h>

namespace velmora::test {
namespace {

using Rig = CompressorRig;

constexpr std::array kRatios{0.0, 0.1882, 0.5, 0.856, 1.0};

// Gain once every envelope has settled on a tone of constant magnitude. The FET's loop takes its time: its
// ratio glides after a reset, and what it overshoots falls with the slowest release.
double settledGain(int variant, double threshold, double ratio, double levelDb, double rate = 44100.0)
{
    Rig rig(variant, rate);
    rig.set(Rig::Threshold, threshold);
    rig.set(Rig::Ratio, ratio);
    rig.module.reset();
    const Signal x = rig.alternating(variant == Fet ? 3.0 : 0.5, fromDb(levelDb));
    return rig.run(x).back() / x.back();
}

double scaleOf(double threshold)
{
    return 0.31623 * fromDb(50.0 * (1.0 - threshold));
}

TEST(StaticCurve, TableOfLevels)
{
    for (int variant : kVariants)
        for (double ratio : kRatios) {
            std::printf("%s ratio %.4f: out for -40..+10 dB in:",
                        kVariantNames[static_cast<unsigned>(variant)], ratio);
            double last = -200.0;
            for (double level = -40.0; level <= 10.0; level += 10.0) {
                const double gain = toDb(settledGain(variant, 0.5, ratio, level));
                std::printf(" %7.2f", level + gain);
                EXPECT_LE(gain, 0.001); // no detector lifts
                // Only the opto at its highest ratios turns louder passages down further.
                if (variant != Opto || ratio < 0.6) {
                    EXPECT_GT(level + gain, last - 1e-6);
                }
                last = level + gain;
            }
            std::printf("\n");
        }
}

TEST(StaticCurve, RatioZeroLeavesLevelsAlone)
{
    for (int variant : kVariants)
        EXPECT_NEAR(settledGain(variant, 0.0, 0.0, 10.0), 1.0, variant == Fet ? 1e-4 : 1e-12);
}

TEST(StaticCurve, ThresholdMovesTheCurveAlongTheLevel)
{
    for (int variant : kVariants)
        for (double level : {-30.0, -12.0, 0.0}) {
            const double here = settledGain(variant, 0.3, 0.7, level);
            const double there = settledGain(variant, 0.5, 0.7, level + 10.0); // 0.2 of 50 dB
            EXPECT_NEAR(here, there, 1e-9) << variant;
        }
}

TEST(StaticCurve, VcaSlopeIsTheDisplayedRatioFlatWhenInfinite)
{
    for (double ratio : kRatios) {
        const double out0 = toDb(settledGain(Vca, 0.2, ratio, -10.0)) - 10.0;
        const double out1 = toDb(settledGain(Vca, 0.2, ratio, 10.0)) + 10.0;
        const double slope = (out1 - out0) / 20.0;
        const double displayed = 1.0 - std::pow(ratio, 0.415);
        std::printf("VCA ratio value %.4f: %.4f dB per dB, display says %.4f\n", ratio, slope, displayed);
        EXPECT_NEAR(slope, displayed, 2e-3); // the 0.01 below the logarithm bends it a little
    }
}

TEST(StaticCurve, FeedForwardDetectorsSettleOnTheirLaws)
{
    double worst = 0.0;
    for (double rate : kRates)
        for (double threshold : {0.0, 0.5, 1.0})
            for (double ratio : {0.1882, 1.0}) {
                const Rig rig(Opto, rate);
                const double key = rig.keyMagnitude(0.5) * scaleOf(threshold);
                const double p = std::pow(key * 0.794 * 1.4 * 1.1885 + 0.01, 2.0);
                const double exponent = 1.2 * std::pow(1.218378 * std::pow(ratio, 0.7), 0.7);
                const double opto = std::pow(p + 1.0, -0.5 * exponent);
                const double L = std::max(std::log10(key * 2.6 * 1.122 * 0.841 * 1.1 + 0.01), 0.0);
                const double knee = L - 0.125 * std::tanh(8.0 * L);
                const double vca = std::pow(10.0, -std::max(knee, 0.0001) * std::pow(ratio, 0.415));
                const double level = toDb(0.5);
                worst =
                    std::max(worst, gapBetween(settledGain(Opto, threshold, ratio, level, rate) / opto, 1.0));
                // The idle envelope of 0.0001 decades needs seconds to fall where no key lifts it.
                EXPECT_NEAR(settledGain(Vca, threshold, ratio, level, rate) / vca, 1.0,
                            knee > 0.0 ? 1e-9 : 3e-4);
            }
    std::printf("opto from its closed form: %.1e\n", worst);
    EXPECT_LT(worst, 1e-9);
}

// The loop's fixed point: what the attack adds per sample, the release takes.
TEST(StaticCurve, FetLoopBalances)
{
    for (double ratio : {0.3, 0.7, 1.0})
        for (double level : {-12.0, 0.0}) {
            const double gain = settledGain(Fet, 0.4, ratio, level);
            const double u = 100.0 * gain / (1.1 - gain); // divider
            const double t2 = 1.0 / (u - 1.0) - 0.001;    // back to the control
            const double t = t2 / (0.999 - t2);
            const double envelope = t * 2.0 * (1.05 - ratio) / ratio;
            const double key = Rig(Fet).keyMagnitude(fromDb(level));
            const double over = key * 0.912 * 0.631 * 1.084 * gain * scaleOf(0.4) - 0.25;
            const double detected = over - 0.25 * std::tanh(4.0 * over);
            const double attack = 1.0 - std::exp(-2000.0 * std::numbers::pi / (44100.0 * 6.6));
            const double keep = std::exp(-2000.0 * std::numbers::pi / (44100.0 * 4000.0));
            const double balance = (envelope + (detected - envelope) * attack) * keep / envelope - 1.0;
            std::printf("FET ratio %.1f at %.0f dB: %.2f dB, balance %.1e\n", ratio, level, toDb(gain),
                        balance);
            EXPECT_LT(gain, 0.95);
            EXPECT_LT(std::fabs(balance), 1e-8);
        }
    const double most = toDb(settledGain(Fet, 0.0, 1.0, 120.0));
    std::printf("FET on a key of 1e6: %.3f dB\n", most);
    EXPECT_NEAR(most, -33.32, 0.01);
}

} // namespace
} // namespace velmora::test
