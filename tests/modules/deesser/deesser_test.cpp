#include "modules/deesser/strip_effect_deesser.h"
#include "tests/support/special_rig.h"

namespace velmora::test {
namespace {

using Rig = SpecialRig<StripEffectDeesser>;
enum Control : std::uint32_t { Monitor = 5, Freq = 16, Q, Sensitivity, Range, Ratio, Split };

constexpr double kVoiceHz = 300.0;
constexpr double kSibilantHz = 6000.0;

double rangeFloor(double v)
{
    return std::pow(10.0, (24.0 * std::pow(v, 0.415037499278844) - 24.0) / 20.0);
}

// Share of the way from the floor to unity that the gain has.
double openness(Rig& rig, double range)
{
    const double floor = rangeFloor(range);
    return (1.0 - rig.meter(2) - floor) / (1.0 - floor);
}

struct BurstLevels {
    double voice, sibilant, reductionBefore, reductionIn, reductionAfter;
};

// 0.6 s of voice with a sibilant in the middle third; levels in dB against the input, in the burst.
BurstLevels runBurst(Rig& rig)
{
    const std::size_t third = rig.samples(0.2);
    const Signal voice = sine(kVoiceHz, rig.rate(), 0.3, third);
    Signal both = sine(kSibilantHz, rig.rate(), 0.3, third);
    for (std::size_t n = 0; n < third; ++n) both[n] += voice[n];
    BurstLevels levels{};
    rig.run(voice);
    levels.reductionBefore = rig.meter(2);
    const Signal y = rig.run(both);
    levels.reductionIn = rig.meter(2);
    rig.run(voice);
    levels.reductionAfter = rig.meter(2);
    const std::size_t from = third / 2;
    levels.voice = db(amplitude(y, kVoiceHz, rig.rate(), from, third) / 0.3);
    levels.sibilant = db(amplitude(y, kSibilantHz, rig.rate(), from, third) / 0.3);
    return levels;
}

TEST(Deesser, TurnsASibilantBurstDownAndLeavesVoiceAlone)
{
    for (double split : {0.0, 1.0}) {
        for (double rate : {44100.0, 96000.0}) {
            Rig rig({{Sensitivity, 0.8}, {Range, 0.3}, {Split, split}}, rate);
            const BurstLevels l = runBurst(rig);
            std::printf("%s %.0f Hz: voice %.2f dB, sibilant %.2f dB, reduction %.4f / %.3f / %.4f\n",
                        split > 0.0 ? "split" : "full ", rate, l.voice, l.sibilant, l.reductionBefore,
                        l.reductionIn, l.reductionAfter);
            EXPECT_LT(l.reductionBefore, 1e-6);
            EXPECT_GT(l.reductionIn, 0.3);
            EXPECT_LT(l.reductionAfter, 1e-3);
            EXPECT_NEAR(l.sibilant, db(1.0 - l.reductionIn), 0.3);
            EXPECT_NEAR(l.voice, split > 0.0 ? 0.0 : l.sibilant, 0.3);
        }
    }
}

// Behind the floor the gain is the level ratio to the power 1/2 or 3/4, whatever the range.
TEST(Deesser, RatioBendsAndRangeLimits)
{
    const Signal tone = sine(kSibilantHz, 44100.0, 0.5, 22050);
    const auto settle = [&](double range, double ratio, double hotness) {
        Rig rig({{Sensitivity, hotness}, {Range, range}, {Ratio, ratio}});
        rig.run(tone);
        return openness(rig, range);
    };
    const double two = settle(0.3, 0.0, 0.8);
    const double four = settle(0.3, 1.0, 0.8);
    std::printf("openness 2:1 %.4f, 4:1 %.4f, power %.6f\n", two, four, std::log(four) / std::log(two));
    EXPECT_NEAR(four, std::pow(two, 1.5), 1e-9);
    EXPECT_NEAR(settle(0.7, 0.0, 0.8), two, 1e-9);

    // Six decibels more sensitivity move the level ratio by as much, and its root by half.
    const auto sensitivity = [](double decibels) { return std::sqrt((decibels + 24.0) / 48.0); };
    const double hotter = settle(0.3, 0.0, sensitivity(-12.0)) / settle(0.3, 0.0, sensitivity(-18.0));
    std::printf("6 dB more sensitivity: %.3f dB\n", db(hotter));
    EXPECT_NEAR(db(hotter), -3.0, 0.1);
    // It moves in whole decibels.
    EXPECT_EQ(settle(0.3, 0.0, sensitivity(-17.6)), settle(0.3, 0.0, sensitivity(-18.0)));

    for (double range : {0.0, 0.1, 0.5}) {
        Rig rig({{Sensitivity, 1.0}, {Range, range}, {Ratio, 1.0}});
        rig.run(tone);
        const double gain = 1.0 - rig.meter(2);
        std::printf("range %.1f: floor %.2f dB, gain %.2f dB\n", range, db(rangeFloor(range)), db(gain));
        EXPECT_GE(gain, rangeFloor(range));
        EXPECT_LT(gain, rangeFloor(range) + 0.05);
    }
    Rig open({{Sensitivity, 1.0}, {Range, 1.0}});
    EXPECT_EQ(open.run(tone), tone);
    EXPECT_EQ(open.meter(2), 0.0);
}

TEST(Deesser, MonitorPlaysTheWeightedBand)
{
    const std::size_t length = 22050;
    Rig rig({{Range, 1.0}, {Monitor, 1.0}});
    const Signal y = rig.run(sine(kSibilantHz, 44100.0, 0.1, length));
    const double got = amplitude(y, kSibilantHz, 44100.0, length / 2, length) / 0.1;
    // Twice the square root of Q, with the detector's 6 dB loss; the crossover's high side takes a little.
    std::printf("monitor gain %.4f of %.4f\n", got, 2.0 * std::sqrt(6.0) * std::pow(10.0, -0.3));
    EXPECT_NEAR(db(got / (2.0 * std::sqrt(6.0) * std::pow(10.0, -0.3))), 0.0, 0.2);
    const Signal low = rig.run(sine(kVoiceHz, 44100.0, 0.1, length));
    EXPECT_LT(amplitude(low, kVoiceHz, 44100.0, length / 2, length), 1e-4);
}

// From reset the gain opens with the recovery cutoff: 0.002 of the frequency above 10 Hz.
TEST(Deesser, OpensAtARateThatFollowsFrequency)
{
    for (double rate : {44100.0, 96000.0, 384000.0}) {
        for (const auto& [value, hz] : {std::pair{0.0, 500.0}, {1.0, 16000.0}}) {
            Rig rig({{Freq, value}}, rate);
            const double expected = 1.0 / (2.0 * std::numbers::pi * (0.002 * hz + 10.0));
            std::size_t samples = 0;
            const double target = std::sqrt(1.0 - std::exp(-1.0));
            for (; openness(rig, 0.5) < target && samples < rig.samples(1.0); ++samples) rig.run({0.0});
            const double seconds = static_cast<double>(samples) / rate;
            std::printf("opening at %.0f Hz, band %.0f Hz: %.2f ms of %.2f\n", rate, hz, 1e3 * seconds,
                        1e3 * expected);
            EXPECT_NEAR(seconds, expected, 0.1e-3 + 1.0 / rate);
        }
    }
}

TEST(Deesser, IsSoundAsAModule)
{
    const Settings full{{Sensitivity, 0.8}};
    const Settings split{{Sensitivity, 0.9}, {Split, 1.0}, {Ratio, 1.0}};
    for (const Settings& settings : {full, split, Settings{{Monitor, 1.0}}}) {
        expectSilenceAndReset<StripEffectDeesser>(settings);
        expectSplitInvariance<StripEffectDeesser>(settings);
        expectRecovery<StripEffectDeesser>(settings);
    }
    expectFiniteUnderAutomation<StripEffectDeesser>(Freq, Split);
    expectTypeZeroShowsNoReduction<StripEffectDeesser>(full, sine(kSibilantHz, 44100.0, 0.3, 44100));

    Rig idle;
    idle.module.resetMeters();
    EXPECT_EQ(idle.meter(2), 0.0);
}

} // namespace
} // namespace velmora::test
