#include "modules/marlow/strip_effect_marlow.h"
#include "tests/support/special_rig.h"

namespace velmora::test {
namespace {

using Rig = SpecialRig<StripEffectMarlow>;
enum Control : std::uint32_t {
    SideChain = 4,
    Monitor,
    Threshold = 16,
    Time,
    Frequency,
    Above,
    Below,
    Q,
    Transition,
    FilterType,
    ControlFilter
};

constexpr double kRate = 44100.0;

double gainValue(double decibels)
{
    return (decibels + 24.0) / 48.0;
}
double frequencyValue(double hz)
{
    return std::log(hz / 20.0) / std::log(1000.0);
}

/// Gain in dB that the dynamic filter has.
double dynamicGain(Rig& rig)
{
    return rig.meter(2) * 48.0 - 24.0;
}

/// A steady external key past the detection filter: the level stands still.
Settings keyed(Settings settings)
{
    settings.push_back({SideChain, 1.0});
    settings.push_back({ControlFilter, 0.0});
    return settings;
}
Signal runKeyed(Rig& rig, const Signal& x, double key)
{
    return rig.run(x, {64}, Signal(x.size(), key));
}

/// Constant whose level stands a number of dB above the default threshold of -30 dB.
double keyFor(double level)
{
    return std::pow(10.0, (level - 30.0) / 20.0) - 1e-7;
}

TEST(Marlow, GainFollowsTheTransitionCurve)
{
    for (double transition : {0.25, 0.5, 1.0}) {
        for (double level : {-60.0, -12.0, -3.0, 0.0, 5.0, 12.0, 40.0}) {
            Rig rig(keyed(
                {{Time, 0.0}, {Above, gainValue(12.0)}, {Below, gainValue(-6.0)}, {Transition, transition}}));
            runKeyed(rig, Signal(rig.samples(0.5), 0.0), keyFor(level));
            const double law = 3.0 + 9.0 * std::tanh(level / (24.0 * transition));
            std::printf("transition %4.1f dB, level %5.1f dB: %.4f dB\n", 24.0 * transition, level,
                        dynamicGain(rig));
            EXPECT_NEAR(dynamicGain(rig), law, 1e-6);
        }
    }
    // Without a transition the curve is a switch, with the centre on its edge.
    Rig hard(keyed({{Time, 0.0},
                    {Threshold, 1.0},
                    {Above, gainValue(12.0)},
                    {Below, gainValue(-6.0)},
                    {Transition, 0.0}}));
    const Signal silence(hard.samples(0.5), 0.0);
    for (const auto& [key, law] : {std::pair{9.99, -6.0}, {10.0 - 1e-7, 3.0}, {10.01, 12.0}}) {
        runKeyed(hard, silence, key);
        EXPECT_NEAR(dynamicGain(hard), law, 1e-6);
    }
}

TEST(Marlow, FilterTakesBothGainsInEveryShape)
{
    struct Case {
        double type, inside, outside;
    };
    for (double rate : {44100.0, 192000.0}) {
        for (const Case& c : {Case{0.0, 20.0, 15000.0}, Case{0.5, 1000.0, 20.0}, Case{1.0, 16000.0, 20.0}}) {
            for (const auto& [level, law] : {std::pair{40.0, 12.0}, {-60.0, -6.0}}) {
                Rig rig(keyed({{Frequency, frequencyValue(1000.0)},
                               {Above, gainValue(12.0)},
                               {Below, gainValue(-6.0)},
                               {Transition, 0.1},
                               {FilterType, c.type}}),
                        rate);
                const std::size_t second = rig.samples(1.0);
                const auto gainAt = [&](double hz) {
                    const Signal y = runKeyed(rig, sine(hz, rate, 0.1, second), keyFor(level));
                    return db(amplitude(y, hz, rate, second / 2, second) / 0.1);
                };
                const double inside = gainAt(c.inside);
                const double outside = gainAt(c.outside);
                std::printf("%6.0f Hz, type %.1f: %7.3f dB inside, %7.3f outside\n", rate, c.type, inside,
                            outside);
                EXPECT_NEAR(inside, law, 0.15);
                EXPECT_NEAR(outside, 0.0, 0.15);
            }
        }
    }
}

// The band's own level decides: a loud tone in the band is cut, a loud tone beside it isn't.
TEST(Marlow, DirectDetectionListensToTheBand)
{
    Rig rig({{Threshold, 0.6}, {Frequency, frequencyValue(3000.0)}, {Above, gainValue(-12.0)}, {Q, 0.7}});
    rig.run(sine(3000.0, kRate, 0.5, rig.samples(0.5)));
    const double inBand = dynamicGain(rig);
    rig.run(sine(100.0, kRate, 0.5, rig.samples(0.5)));
    const double beside = dynamicGain(rig);
    std::printf("gain %.2f dB with the tone in the band, %.2f dB beside it\n", inBand, beside);
    EXPECT_LT(inBand, -8.0);
    EXPECT_NEAR(beside, 0.0, 0.2);
}

TEST(Marlow, MonitorPlaysTheDetectionFilter)
{
    constexpr double kStop = -40.0;
    struct Case {
        double type, control;
        std::array<double, 3> decibels; ///< at 20 Hz, 1 kHz and 18 kHz; kStop for anything below
    };
    // At its frequency a pass filter of shelf Q 0.7 loses 3.1 dB, its wide second section 1.9 dB.
    constexpr double kEdge = -5.04;
    const std::array cases{
        Case{0.5, 0.0, {0.0, 0.0, 0.0}},     Case{0.5, 0.5, {kStop, 0.0, kStop}},
        Case{0.5, 1.0, {0.0, kStop, 0.0}},   Case{0.0, 0.5, {0.0, kEdge, kStop}},
        Case{0.0, 1.0, {kStop, kEdge, 0.0}}, Case{1.0, 0.5, {kStop, kEdge, 0.0}},
        Case{1.0, 1.0, {0.0, kEdge, kStop}},
    };
    for (const Case& c : cases) {
        std::printf("type %.1f, control %.1f:", c.type, c.control);
        for (std::size_t i = 0; i < 3; ++i) {
            const double hz = std::array{20.0, 1000.0, 18000.0}[i];
            Rig rig({{Frequency, frequencyValue(1000.0)},
                     {FilterType, c.type},
                     {ControlFilter, c.control},
                     {Monitor, 1.0}});
            const std::size_t second = rig.samples(1.0);
            const Signal y = rig.run(sine(hz, kRate, 0.5, second));
            const double got = db(amplitude(y, hz, kRate, second / 2, second) / 0.5 + 1e-9);
            std::printf(" %.2f dB", got);
            if (c.decibels[i] == kStop)
                EXPECT_LT(got, kStop) << hz;
            else
                EXPECT_NEAR(got, c.decibels[i], 0.25) << hz;
        }
        std::printf("\n");
    }
}

// A rising level takes the fast rate and one pole, a falling one has two equal poles, whichever way the gain
// goes. With the gains in falling order the fall of the gain, at the fast rate, is what has two poles.
TEST(Marlow, TimesFollowFrequencyAndTime)
{
    for (double rate : {44100.0, 96000.0, 384000.0}) {
        for (const auto& [hz, time] : {std::pair{200.0, 0.5}, {200.0, 0.25}, {5000.0, 0.75}}) {
            const double factor = 0.1 * std::pow(100.0, time);
            const double tauRise = factor / (6.283 * 0.25 * std::pow(hz, 0.7071));
            const double tauFall = factor / (6.283 * 0.1 * std::sqrt(hz));
            Rig rig(keyed({{Time, time}, {Frequency, frequencyValue(hz)}, {Above, 1.0}, {Transition, 0.0}}),
                    rate);
            runKeyed(rig, Signal(rig.samples(20.0 * tauFall), 0.0), 0.0);
            // One pole: 1 - exp(-1) of the swing after the time constant.
            runKeyed(rig, Signal(rig.samples(tauRise), 0.0), 1.0);
            const double risen = dynamicGain(rig) / 24.0;
            runKeyed(rig, Signal(rig.samples(30.0 * tauRise), 0.0), 1.0);
            // Two poles: 2 exp(-1) left after the time constant.
            runKeyed(rig, Signal(rig.samples(tauFall), 0.0), 0.0);
            const double left = dynamicGain(rig) / 24.0;
            std::printf("%6.0f Hz, band %4.0f Hz: rise %.2f ms %.4f, fall %.2f ms %.4f\n", rate, hz,
                        1e3 * tauRise, risen, 1e3 * tauFall, left);
            EXPECT_NEAR(risen, 1.0 - std::exp(-1.0), 0.02);
            EXPECT_NEAR(left, 2.0 * std::exp(-1.0), 0.02);

            rig.set({{Above, 0.0}});
            runKeyed(rig, Signal(rig.samples(20.0 * tauFall), 0.0), 0.0);
            runKeyed(rig, Signal(rig.samples(tauRise), 0.0), 1.0);
            EXPECT_NEAR(dynamicGain(rig) / -24.0, 1.0 - 2.0 * std::exp(-1.0), 0.02);
        }
    }
}

TEST(Marlow, IndicatorLeansToTheSideOfTheThreshold)
{
    Rig rig(keyed({}));
    const Signal second(rig.samples(1.0), 0.0);
    EXPECT_EQ(rig.meter(3), 0.5);
    runKeyed(rig, second, keyFor(3.0));
    EXPECT_GT(rig.meter(3), 0.999);
    runKeyed(rig, second, keyFor(-3.0));
    EXPECT_LT(rig.meter(3), 0.001);
    EXPECT_NEAR(rig.meter(2), 0.5, 1e-12);
}

TEST(Marlow, FrequencyAndQMoveSmoothly)
{
    Rig rig({{Above, 1.0}, {Below, 1.0}, {Frequency, 0.2}});
    const Signal tone = sine(500.0, kRate, 0.05, rig.samples(1.0));
    rig.run(tone);
    rig.set({{Frequency, 0.9}, {Q, 0.1}});
    const Signal y = rig.run(tone);
    double jump = 0.0;
    for (std::size_t n = 1; n < y.size(); ++n) jump = std::max(jump, std::fabs(y[n] - y[n - 1]));
    std::printf("sweep across a 24 dB bell: largest step %.3f\n", jump);
    EXPECT_LT(jump, 0.07); // 24 dB above the tone's own 0.0036 is 0.056
}

// The defaults move nothing but the transition, which a new module has narrower.
TEST(Marlow, StartsOnItsDefaults)
{
    const Signal x = noise(4096, 0.9);
    StripEffectMarlow fresh(Rig::kWindow, Rig::kMeters, 711);
    fresh.setParameter(Rig::kWindow + Above, 1.0);
    fresh.setParameter(Rig::kWindow + Transition, 0.5);
    std::array<double, 64> main;
    AudioRecord record;
    record.channels[0] = record.channels[1] = main.data();
    Signal y;
    for (std::size_t at = 0; at < x.size(); at += main.size()) {
        std::copy_n(x.data() + at, main.size(), main.data());
        fresh.processMono(record, record, 64);
        y.insert(y.end(), main.begin(), main.end());
    }
    EXPECT_EQ(y, Rig({{Above, 1.0}}).run(x));
}

TEST(Marlow, IsSoundAsAModule)
{
    const Settings cut{{Above, 0.1}, {Frequency, 0.7}};
    const Settings shelf{{Above, 0.9}, {Below, 0.3}, {FilterType, 1.0}, {ControlFilter, 1.0}};
    for (const Settings& settings : {cut, shelf, Settings{{Above, 0.8}, {FilterType, 0.0}}}) {
        expectSilenceAndReset<StripEffectMarlow>(settings);
        expectSplitInvariance<StripEffectMarlow>(keyed(settings));
        expectSplitInvariance<StripEffectMarlow>(settings);
        expectRecovery<StripEffectMarlow>(settings);
    }
    expectFiniteUnderAutomation<StripEffectMarlow>(Threshold, ControlFilter);
}

} // namespace
} // namespace velmora::test
