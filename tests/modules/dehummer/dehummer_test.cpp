#include "modules/dehummer/strip_effect_dehummer.h"
#include "tests/support/gap.h"
#include "tests/support/special_rig.h"

namespace velmora::test {
namespace {

using Rig = SpecialRig<StripEffectDehummer>;
enum Control : std::uint32_t { Monitor = 5, EvenOdd = 16, Brightness, Attenuation, Frequency, HzOffset };

constexpr std::array kWeights{1.0,   0.095, 0.085, 0.073, 0.062, 0.051, 0.04,  0.03,  0.023,
                              0.019, 0.016, 0.014, 0.012, 0.01,  0.009, 0.007, 0.005, 0.003};
constexpr std::size_t kGlide = 2646;

double attenuationDb(double v)
{
    return 48.0 * std::pow(v, 0.415037499278844) - 48.0;
}

double weight(std::size_t n, double brightness)
{
    return n == 1 ? 1.0 : kWeights[n - 1] * std::pow(10.0, 1.0 - (1.0 - brightness) * (1.0 - brightness));
}

/// Gain in dB at each harmonic of a fundamental, from the impulse response.
std::array<double, 18> depths(Rig& rig, double fundamental)
{
    Signal impulse(rig.samples(1.5), 0.0);
    impulse[0] = 1.0;
    const Signal response = rig.run(impulse);
    std::array<double, 18> result{};
    for (std::size_t n = 1; n <= 18; ++n)
        result[n - 1] =
            db(std::abs(bin(response, static_cast<double>(n) * fundamental, rig.rate(), 0, response.size())));
    return result;
}

struct Mains {
    double frequency; ///< normalised
    double offset;    ///< normalised
    double hz;
};
constexpr std::array kMains{Mains{0.0, 0.5, 50.0}, Mains{1.0, 0.5, 60.0}, Mains{0.0, 0.0, 40.0},
                            Mains{1.0, 1.0, 70.0}, Mains{0.0, 0.515, 50.3}};

// Against the step of sample by sample, in whatever pieces.
TEST(Dehummer, SlowLevelTakesFourSamplesForOne)
{
    constexpr double kStep = 1e-3;
    const Signal x = noise(20000, 0.5);
    double expected = 0.0;
    for (double v : x) expected += (std::fabs(v) - expected) * kStep;
    std::array<double, 3> got{};
    for (std::size_t p = 0; p < got.size(); ++p) {
        const std::size_t piece = std::array{1U, 7U, 64U}[p];
        SlowLevel level;
        level.setStep(kStep);
        for (std::size_t n = 0; n < x.size(); n += piece)
            level.follow(&x[n], static_cast<std::int32_t>(std::min(piece, x.size() - n)));
        got[p] = level.value();
    }
    std::printf("slow level off by %.1e\n", got[0] - expected);
    EXPECT_NEAR(got[0], expected, 1e-14);
    EXPECT_EQ(got[1], got[0]);
    EXPECT_EQ(got[2], got[0]);
}

// A shallow cut, so that the skirts of the neighbours don't count.
TEST(Dehummer, CutsEveryHarmonicByItsShare)
{
    constexpr double kShallow = 0.75;
    for (double rate : {44100.0, 96000.0}) {
        for (const Mains& mains : kMains) {
            for (double brightness : {0.0, 0.5, 1.0}) {
                Rig rig({{Brightness, brightness},
                         {Attenuation, kShallow},
                         {Frequency, mains.frequency},
                         {HzOffset, mains.offset}},
                        rate);
                const std::array<double, 18> got = depths(rig, mains.hz);
                double worst = 0.0;
                for (std::size_t n = 1; n <= 18; ++n) {
                    const double law = attenuationDb(kShallow) * weight(n, brightness);
                    worst = std::max(worst, gapBetween(got[n - 1], law));
                    EXPECT_NEAR(got[n - 1], law, 0.02) << mains.hz << " Hz, harmonic " << n;
                }
                std::printf("%6.0f Hz, hum %.1f Hz, brightness %3.0f %%: %.3f %.3f ... %.3f dB, worst %.4f\n",
                            rate, mains.hz, 100.0 * brightness, got[0], got[1], got[17], worst);
            }
        }
    }
}

TEST(Dehummer, AttenuationReachesFortyEightDecibels)
{
    for (const auto& [value, law] : {std::pair{0.0, -48.0}, {0.5, -12.0}, {1.0, 0.0}}) {
        Rig rig({{Attenuation, value}});
        const std::array<double, 18> got = depths(rig, 60.0);
        std::printf("attenuation %.1f: %.3f dB, second harmonic %.3f dB\n", value, got[0], got[1]);
        EXPECT_NEAR(got[0], law, 0.05);
    }
    // Between the harmonics the signal stays.
    Rig rig({{Attenuation, 0.5}});
    EXPECT_NEAR(depths(rig, 90.0)[0], 0.0, 0.15);
}

TEST(Dehummer, EvenOddWeighsTheParities)
{
    constexpr double kShallow = 0.75;
    struct Case {
        double value, odd, even;
    };
    for (const Case& c : {Case{0.0, 1.0, 0.0}, Case{0.25, 1.0, 0.5}, Case{0.5, 1.0, 1.0},
                          Case{0.75, 0.5, 1.0}, Case{1.0, 0.0, 1.0}}) {
        Rig rig({{EvenOdd, c.value}, {Brightness, 1.0}, {Attenuation, kShallow}});
        const std::array<double, 18> got = depths(rig, 60.0);
        for (std::size_t n = 1; n <= 18; ++n) {
            const double parity = n % 2 != 0 ? c.odd : c.even;
            EXPECT_NEAR(got[n - 1], attenuationDb(kShallow) * parity * weight(n, 1.0), 0.02) << n;
        }
        std::printf("even/odd %.2f: %.3f / %.3f dB at harmonics 1 and 2\n", c.value, got[0], got[1]);
    }
}

TEST(Dehummer, RetuningGlidesToTheNewHum)
{
    Rig moved({{Attenuation, 0.75}});
    const Signal tone = sine(1000.0, 44100.0, 0.5, 2 * kGlide);
    moved.set(Frequency, 0.0);
    const Signal y = moved.run(tone);
    double jump = 0.0;
    for (std::size_t n = 1; n < y.size(); ++n) jump = std::max(jump, std::fabs(y[n] - y[n - 1]));
    EXPECT_LT(jump, 0.08); // the tone's own steps reach 0.071
    moved.run(Signal(44100 * 3, 0.0));
    Rig fresh({{Attenuation, 0.75}, {Frequency, 0.0}});
    const std::array<double, 18> got = depths(moved, 50.0);
    const std::array<double, 18> expected = depths(fresh, 50.0);
    for (std::size_t k = 0; k < got.size(); ++k) EXPECT_NEAR(got[k], expected[k], 1e-6);
}

double monitorGain(const Settings& settings, std::size_t n)
{
    const double hz = 50.0 * static_cast<double>(n);
    Rig rig({{Frequency, 0.0}, {Brightness, 1.0}, {Monitor, 1.0}});
    rig.set(settings);
    const Signal y = rig.run(sine(hz, 44100.0, 0.5, 2 * 44100));
    return amplitude(y, hz, 44100.0, 44100, 2 * 44100) / 0.5;
}

TEST(Dehummer, MonitorPlaysTwelveHarmonicsByTheirWeight)
{
    for (std::size_t n = 1; n <= 18; ++n) {
        const double got = monitorGain({}, n);
        const double own = 2.0 * weight(n, 1.0);
        const bool heard = n <= 6 || n % 4 == 1 || n % 4 == 2;
        std::printf("harmonic %2zu: monitor %.4f, weight %.4f\n", n, got, own);
        // Neighbouring band-passes, the strong fundamental's above all, add a little.
        if (heard)
            EXPECT_NEAR(got, own, 0.025) << n;
        else
            EXPECT_LT(got, 0.5 * own) << n;
    }
    EXPECT_EQ(monitorGain({{Attenuation, 1.0}}, 2), monitorGain({}, 2));
    EXPECT_NEAR(monitorGain({{EvenOdd, 0.25}}, 2) / monitorGain({}, 2), 0.5, 0.005);
    EXPECT_NEAR(monitorGain({{EvenOdd, 0.75}}, 3) / monitorGain({}, 3), 0.5, 0.005);
}

TEST(Dehummer, ReductionMeterShowsWhatTheCombTakes)
{
    const Signal hum = sine(60.0, 44100.0, 0.5, 6 * 44100);
    for (double monitor : {0.0, 1.0}) {
        Rig rig({{Monitor, monitor}});
        rig.run(hum);
        std::printf("reduction of a 60 Hz hum: %.4f\n", rig.meter(2));
        EXPECT_NEAR(rig.meter(2), 1.0 - std::pow(10.0, -12.0 / 20.0), 0.002);
    }
    Rig open({{Attenuation, 1.0}});
    open.run(hum);
    EXPECT_LT(open.meter(2), 1e-9);
    Rig silent;
    silent.run(Signal(44100, 1e-7));
    EXPECT_EQ(silent.meter(2), 0.0);
    silent.run(hum);
    silent.module.resetMeters();
    EXPECT_EQ(silent.meter(2), 0.0);
}

TEST(Dehummer, IsSoundAsAModule)
{
    const Settings deep{{Attenuation, 0.0}, {Brightness, 1.0}, {Frequency, 0.0}};
    for (const Settings& settings : {Settings{}, deep, Settings{{Monitor, 1.0}}}) {
        expectSilenceAndReset<StripEffectDehummer>(settings);
        expectSplitInvariance<StripEffectDehummer>(settings);
        expectRecovery<StripEffectDehummer>(settings);
    }
    expectFiniteUnderAutomation<StripEffectDehummer>(EvenOdd, HzOffset);
    expectTypeZeroShowsNoReduction<StripEffectDehummer>({}, sine(60.0, 44100.0, 0.5, 6 * 44100));
}

// Calls shorter than the chain of cuts, with glides under way and the listening sections resting in between.
TEST(Dehummer, CallLengthsDontShowWhileGliding)
{
    const Signal x = noise(640, 0.9);
    const std::vector<std::size_t> whole{64};
    const std::vector<std::size_t> odd{1, 17, 3, 43};
    Rig a({}, 96000.0);
    Rig b({}, 96000.0);
    for (const Settings& move :
         {Settings{{HzOffset, 0.9}}, Settings{{Monitor, 1.0}}, Settings{{Frequency, 0.0}},
          Settings{{Monitor, 0.0}}, Settings{{Attenuation, 0.1}}, Settings{{Monitor, 1.0}}}) {
        a.set(move);
        b.set(move);
        EXPECT_EQ(a.run(x, whole), b.run(x, odd));
        EXPECT_EQ(a.meter(2), b.meter(2));
    }
}

} // namespace
} // namespace velmora::test
