#include "dsp/strip_biquad.h"
#include "tests/modules/filters/filters_rig.h"
#include "tests/support/gap.h"

#include <gtest/gtest.h>

#include <cstdio>

namespace velmora::test {
namespace {

using Rig = FiltersRig;

constexpr std::array kRates{44100.0, 96000.0, 192000.0};

double expectedHighPass(const Prototype& p, double x, int slope)
{
    double gain = p.highPass(0.7 * x, 0.091 * std::log10(x) + 0.4);
    if (slope == 1) gain *= std::abs(1.0 - p.onePole(0.4 * x));
    if (slope == 2) gain *= p.highPass(0.5 * x, 0.5);
    return gain;
}

double expectedLowPass(const Prototype& p, double f, int slope)
{
    double gain = 1.0;
    if (slope != 1) gain *= std::abs(p.onePole(1.2 * std::min(1.2 * f, 0.499 * p.rate)));
    if (slope != 0) gain *= p.lowPass(1.2 * f, 0.091 * std::log10(600000.0 / f) + 0.4);
    return gain;
}

TEST(FilterSlopes, HighPassMeetsItsPrototype)
{
    double worst = 0.0;
    for (double rate : kRates)
        for (int slope = 0; slope < 3; ++slope) {
            Rig rig(Rig::Basic, rate);
            rig.set(Rig::HpfIn, 1.0);
            rig.set(Rig::HpfSlope, slope / 2.0);
            for (double value : {0.0, 0.5, 1.0}) {
                const double x = 20.0 * std::pow(100.0, value);
                rig.set(Rig::HpfFreq, value);
                for (double hz : {x / 16.0, x, 4.0 * x}) {
                    const double expected = expectedHighPass({hz, rate}, x, slope);
                    worst = std::max(worst, gapBetween(rig.magnitude(hz), expected));
                }
            }
            const double corner = rig.magnitudeDb(2000.0);
            const double perOctave = rig.magnitudeDb(125.0) - rig.magnitudeDb(62.5);
            std::printf("HPF 2 kHz at %.0f Hz: corner %.3f dB, %.2f dB per octave far below\n", rate, corner,
                        perOctave);
            EXPECT_NEAR(perOctave, 12.0 + 6.0 * slope, 0.3);
        }
    std::printf("largest deviation from the prototype: %.1e of full scale\n", worst);
    EXPECT_LT(worst, 1e-9);
}

TEST(FilterSlopes, LowPassMeetsItsPrototype)
{
    double worst = 0.0;
    for (double rate : kRates)
        for (int slope = 0; slope < 3; ++slope) {
            Rig rig(Rig::Basic, rate);
            rig.set(Rig::LpfIn, 1.0);
            rig.set(Rig::LpfSlope, slope / 2.0);
            for (double value : {1.0, 0.6, 0.0}) { // 30 kHz: nearly open at 44100 Hz
                const double f = 300.0 * std::pow(100.0, value);
                rig.set(Rig::LpfFreq, value);
                const double seconds =
                    1.2 * f > 0.499 * rate ? 10.0 : 0.5; // a pole close to Nyquist rings long
                for (double hz : {f / 8.0, std::min(f, 0.45 * rate), std::min(8.0 * f, 0.49 * rate)}) {
                    const double expected = expectedLowPass({hz, rate}, f, slope);
                    worst = std::max(worst, gapBetween(rig.magnitude(hz, seconds), expected));
                }
            }
            const double corner = rig.magnitudeDb(300.0);
            const double perOctave = rig.magnitudeDb(2400.0) - rig.magnitudeDb(4800.0);
            std::printf("LPF 300 Hz at %.0f Hz: corner %.3f dB, %.2f dB per octave far above\n", rate, corner,
                        perOctave);
            EXPECT_NEAR(perOctave, 6.0 + 6.0 * slope, 0.6);
        }
    std::printf("largest deviation from the prototype: %.1e of full scale\n", worst);
    EXPECT_LT(worst, 1e-9);
}

// The one-pole section's limit is that of the rate at which the frequency was written.
TEST(FilterSlopes, LowPassLimitStaysWithTheWrite)
{
    Rig rig(Rig::Basic);
    rig.set(Rig::LpfIn, 1.0);
    rig.set(Rig::LpfSlope, 0.0);
    rig.set(Rig::LpfFreq, 1.0);
    rig.module.setSampleRate(rig.rate = 96000.0);
    const Prototype p{20000.0, 96000.0};
    EXPECT_NEAR(rig.magnitudeDb(20000.0), toDb(std::abs(p.onePole(1.2 * 0.499 * 44100.0))), 1e-9);
    rig.set(Rig::LpfFreq, 1.0);
    EXPECT_NEAR(rig.magnitudeDb(20000.0), toDb(std::abs(p.onePole(1.2 * 36000.0))), 1e-9);
}

TEST(ParametricBand, TypesActWhereTheyShould)
{
    struct Row {
        const char* name;
        double low, centre, high; // dB at +12 dB
    };
    constexpr Row kRows[]{{"LoShelf", 12.0, 6.0, 0.0},
                          {"Bell", -60.0, 0.0, -60.0},
                          {"Peak", 0.0, 12.0, 0.0},
                          {"Notch", 0.0, -200.0, 0.0},
                          {"HiShelf", 0.0, 6.0, 12.0}};
    for (double rate : kRates)
        for (int type = 0; type < 5; ++type) {
            Rig rig(Rig::Pro, rate);
            rig.set(Rig::PrmIn, 1.0);
            rig.set(Rig::PrmType, type / 4.0);
            rig.set(Rig::PrmGain, 0.75);
            rig.set(Rig::PrmFreq, 0.5);
            rig.set(Rig::PrmQ, 0.5);
            const double centreHz = 20.0 * std::sqrt(1000.0);
            const double low = rig.magnitudeDb(0.6), centre = rig.magnitudeDb(centreHz);
            const double high = rig.magnitudeDb(0.499 * rate);
            std::printf("%s +12 dB at %.0f Hz: %.3f, %.3f, %.3f dB\n", kRows[type].name, rate, low, centre,
                        high);
            if (type == 1) {
                EXPECT_LT(low, -55.0);
                EXPECT_LT(high, -40.0);
            } else {
                EXPECT_NEAR(low, kRows[type].low, 1e-3);
                EXPECT_NEAR(high, kRows[type].high, 2e-3);
            }
            if (type == 3)
                EXPECT_LT(centre, -100.0);
            else
                EXPECT_NEAR(centre, kRows[type].centre, 1e-6);

            const double aside = rig.magnitudeDb(2.0 * centreHz);
            rig.set(Rig::PrmGain, 0.5); // 0 dB: unity, but Bell and Notch don't know gain
            const bool knowsGain = type % 2 == 0;
            EXPECT_NEAR(rig.magnitudeDb(2.0 * centreHz), knowsGain ? 0.0 : aside, 1e-9);
        }
}

TEST(ParametricBand, GainMovesInHundredthsOfADecibel)
{
    Rig rig(Rig::Pro);
    rig.set(Rig::PrmIn, 1.0);
    for (double value : {0.0, 0.1234567, 0.50013, 0.9, 1.0}) {
        rig.set(Rig::PrmGain, value);
        const double db = rig.magnitudeDb(20.0 * std::sqrt(1000.0));
        EXPECT_NEAR(db, std::floor(4800.0 * value + 0.5) / 100.0 - 24.0, 1e-9) << value;
    }
}

TEST(FilterGlide, HighPassSectionMovesLikeTheStripsOwn)
{
    Rig rig(Rig::Basic, 96000.0);
    rig.set(Rig::HpfSlope, 0.0);
    rig.set(Rig::HpfIn, 1.0);
    StripBiquad biquad(StripBiquadKind::HighPass);
    biquad.setEnabled(true);
    biquad.setSampleRate(96000.0);
    Signal expected;
    Signal got;
    const Signal x = noise(1000, 0.5);
    for (double value : {0.2, 0.9, 0.4, 0.4, 0.4, 0.4}) {
        const double hz = std::clamp(20.0 * std::pow(100.0, value), 20.0, 2000.0);
        rig.set(Rig::HpfFreq, value);
        biquad.setFrequency(hz * 0.7);
        biquad.setQ(std::log10(hz) * 0.091 + 0.4);
        if (expected.empty()) {
            rig.module.reset();
            biquad.resetState();
        }
        for (double v : rig.run(x)) got.push_back(v);
        for (double v : x) expected.push_back(biquad.runSample(v));
    }
    EXPECT_EQ(got, expected);
}

// The coefficient can be read off the output: c = (y[n] - y[n-1]) / (x[n] - y[n-1]).
TEST(FilterGlide, OnePoleDriftsThenLands)
{
    Rig rig(Rig::Basic);
    rig.set(Rig::LpfSlope, 0.0);
    rig.set(Rig::LpfIn, 1.0);
    rig.set(Rig::LpfFreq, 0.2);
    rig.module.reset();
    const auto coefficient = [](double v) {
        return 1.0 - std::exp(-6.283 * 1.44 * 300.0 * std::pow(100.0, v) / 44100.0);
    };
    rig.set(Rig::LpfFreq, 0.6);
    Signal x(2700, 1.0);
    for (std::size_t i = 0; i < x.size(); i += 2) x[i] = -1.0;
    const Signal y = rig.run(x);
    double worst = 0.0;
    for (std::size_t i = 1; i < y.size(); ++i) {
        const double c = (y[i] - y[i - 1]) / (x[i] - y[i - 1]);
        const double left = i < 2646 ? std::pow(0.999, static_cast<double>(i + 1)) : 0.0;
        const double expected = coefficient(0.6) + (coefficient(0.2) - coefficient(0.6)) * left;
        worst = std::max(worst, gapBetween(c, expected));
    }
    std::printf("one-pole coefficient during the glide: %.1e from its law\n", worst);
    EXPECT_LT(worst, 1e-12);
}

} // namespace
} // namespace velmora::test
