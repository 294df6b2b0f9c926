#include "dsp/biquad_design.h"
#include "modules/input/auto_mute.h"
#include "modules/input/component_spread.h"
#include "tests/modules/input/input_rig.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <malloc.h>

namespace velmora::test {
namespace {

using Complex = std::complex<double>;
constexpr double kNoiseOn = 1.0;
constexpr double kNoiseAuto = 0.5;

InputRig noisy(int index, int type, double mode, double level = 0.5, double rate = kRate)
{
    InputRig rig = InputRig::unit(index, type, rate);
    rig.set(InputRig::kNoiseIn, mode);
    rig.set(InputRig::kNoiseLevel, level);
    rig.module->reset();
    return rig;
}

double gainAt(const BiquadSettings& settings, double hz)
{
    const BiquadCoefficients c = designBiquad(settings);
    const Complex z = std::polar(1.0, -2.0 * std::numbers::pi * hz / settings.sampleRate);
    return std::norm((c.b0 + c.b1 * z + c.b2 * z * z) / (1.0 + c.a1 * z + c.a2 * z * z));
}

/// Mean power of a signal at a frequency, per bin of a Hann window of 4096, averaged over the signal.
double bandPower(const Signal& signal, double hz)
{
    constexpr std::size_t kWindow = 4096;
    Signal windowed(kWindow);
    double sum = 0.0;
    std::size_t segments = 0;
    for (std::size_t at = 0; at + kWindow <= signal.size(); at += kWindow / 2, ++segments) {
        for (std::size_t i = 0; i < kWindow; ++i)
            windowed[i] = signal[at + i] *
                          (0.5 - 0.5 * std::cos(2.0 * std::numbers::pi * static_cast<double>(i) / kWindow));
        sum += std::norm(tone(windowed, hz, 0, kWindow));
    }
    return sum / static_cast<double>(segments);
}

/// The mute's gain for one sample of a level.
double muteGain(preamp::AutoMute& mute, double level, preamp::NoiseGenerator& taps)
{
    preamp::RailBlock block{level};
    mute.run(block, 1, taps);
    return block[0];
}

struct NoiseLaw {
    double scale, filterW, tiltHz, tiltQ, tiltDb;
    double chainDb; ///< small-signal gain of the drive stages
    std::array<BiquadSettings, 3> hums;
    double bandwidth, filtered;
};

/// Shaping of the left rail for tolerances T1, T3, T5, T7.
NoiseLaw noiseLaw(int type, const preamp::ComponentSpread& s)
{
    const double t3 = s.tolerance[2], t5 = s.tolerance[4], t7 = s.tolerance[6];
    const auto bell = [](double hz, double q, double gain) {
        return BiquadSettings{StripBiquadKind::Peaking, hz, q, gain, kRate};
    };
    if (type == 2)
        return {
            0.75537,
            72256.63103256524,
            1800.0,
            0.2,
            -8.0,
            0.47,
            {bell(45 * t5, 0.7 * t7, 14 * t3), bell(60, 7 * t3, 14 * t5), bell(100 * t3, 7 * t5, 10 * t7)},
            18000.0,
            0.75};
    if (type == 3)
        return {0.83,
                94247.7796076938,
                1000.0,
                0.25,
                -8.0,
                0.80,
                {bell(40 * t7, 0.8 * t3, 10 * t5), bell(60, 7 * t5, 15 * t7), bell(100 * t5, 7 * t7, 9 * t3)},
                0.0,
                0.0};
    return {0.627,
            97389.37226128358,
            1000.0,
            0.3,
            -6.0,
            1.36,
            {bell(35 * t3, 0.8 * t5, 6 * t7), bell(60, 7 * t7, 7 * t3), bell(100 * t7, 7 * t3, 4 * t5)},
            22000.0,
            0.35};
}

double expectedPower(int type, int index, double hz)
{
    const preamp::ComponentSpread spread = preamp::componentSpread(index);
    const NoiseLaw law = noiseLaw(type, spread);
    const Complex z = std::polar(1.0, -2.0 * std::numbers::pi * hz / kRate);
    const double share = 1.0 - std::exp(-law.filterW / kRate);
    const double level = std::sqrt(1000.0) * 0.00000171 * law.scale * spread.noiseTrim[0];
    // White noise over -1..1 has power 1/3; a Hann window of N reads it as 4 x 3/8 / N.
    double power = 1.5 / 4096.0 / 3.0 * level * level * std::norm(share / (1.0 - (1.0 - share) * z));
    power *= gainAt({StripBiquadKind::HighShelf, law.tiltHz, law.tiltQ,
                     law.tiltDb * std::sqrt(spread.tolerance[0]), kRate},
                    hz);
    for (const BiquadSettings& hum : law.hums) power *= gainAt(hum, hz);
    if (law.filtered > 0.0) {
        const BiquadCoefficients c =
            designBiquad({StripBiquadKind::OnePoleLowPass, law.bandwidth, 1.0, 0.0, kRate});
        power *= std::norm(law.filtered * c.b0 / (1.0 + c.a1 * z) + 1.0 - law.filtered);
    }
    return power * std::pow(10.0, law.chainDb / 10.0);
}

TEST(ConsoleNoise, LevelAndSpectrumOfEachDecadeFollowTheirShaping)
{
    for (int type = 2; type <= 4; ++type) {
        InputRig rig = noisy(5, type, kNoiseOn);
        rig.run(silence(4.0));
        const Signal out = rig.run(silence(24.0));
        std::printf("type %d noise: %.1f dB rms;", type, db(rms(out, 0, out.size())));
        for (const double hz : {200.0, 500.0, 1000.0, 3000.0, 8000.0, 15000.0}) {
            const double measured = 10.0 * std::log10(bandPower(out, hz));
            const double expected = 10.0 * std::log10(expectedPower(type, 5, hz));
            std::printf(" %.0f Hz %.1f (law %.1f)", hz, measured, expected);
            EXPECT_NEAR(measured, expected, 1.2) << hz; // 500 segments: 0.2 dB, crosstalk and bump 0.6 dB
        }
        std::printf("\n");
    }
}

TEST(ConsoleNoise, LevelFollowsItsKnobAndTheRateKeepsTheDensity)
{
    InputRig low = noisy(3, 4, kNoiseOn, 0.0), high = noisy(3, 4, kNoiseOn, 1.0);
    const Signal lowOut = low.run(silence(4.0)), highOut = high.run(silence(4.0));
    EXPECT_NEAR(db(rms(highOut, 0, highOut.size()) / rms(lowOut, 0, lowOut.size())), 60.0, 0.1);

    InputRig fast = noisy(3, 4, kNoiseOn, 1.0, 96000.0);
    const Signal fastOut = fast.run(silence(8.0, 96000.0));
    const double hz = 1000.0 * kRate / 96000.0; // of the bin, at the rate that `tone` assumes
    const double perBin = bandPower(fastOut, hz) / bandPower(highOut, 1000.0);
    const double ratio = 10.0 * std::log10(perBin * kRate / 96000.0);
    std::printf("noise density at 96000 Hz against 44100 Hz: %+.2f dB\n", ratio);
    EXPECT_NEAR(ratio, 0.0, 1.0);
}

TEST(ConsoleNoise, OffIsSilentAndLimitsNoBandwidth)
{
    for (const int type : {2, 4, 5}) {
        InputRig rig(type);
        rig.set(InputRig::kNoiseLevel, 1.0);
        EXPECT_EQ(peak(rig.run(silence(0.5))), 0.0);
    }
    const auto gain = [](double mode) {
        InputRig rig = noisy(0, 2, mode, 0.0);
        return std::abs(tone(rig.run(sine(0.001, 16000.0, 1.0)), 16000.0, 22050, 22050));
    };
    std::printf("60s at 16 kHz, noise on against off: %.2f dB\n", db(gain(kNoiseOn) / gain(0.0)));
    EXPECT_LT(db(gain(kNoiseOn) / gain(0.0)), -0.5);
}

TEST(ConsoleNoise, ValuesDrawnAheadAreThoseDrawnOneByOne)
{
    const preamp::GeneratorWords seed{11731, 19763, 767};
    preamp::NoiseGenerator ahead(seed), single(seed);
    preamp::DrawnValues<1024> drawn;
    for (std::size_t count = 8; count <= 1024; count += 8) { // goes on behind stretches of all lengths
        ahead.drawAhead<Lanes2>(drawn, count);
        for (std::size_t i = 0; i < count; i += 8) {
            std::array<std::int64_t, 8> words;
            drawn.eightAt(i / 8, words.data());
            for (const std::int64_t w : words)
                ASSERT_EQ(preamp::unitOf<Lanes2>(LaneWords<2>{w, 0})[0], single.next()) << count << ", " << i;
        }
    }
}

TEST(ConsoleNoise, AutoMuteGainIsTheLevelOverSixtyDecibels)
{
    preamp::NoiseGenerator taps({1, 2, 3});
    for (const double level : {0.0, 0.0001, 0.0005, 0.5}) {
        preamp::AutoMute mute;
        mute.reset(kRate);
        double gain = 0.0;
        for (int i = 0; i < 2 * 44100; ++i) gain = muteGain(mute, level, taps);
        EXPECT_NEAR(gain, std::min(level, 0.001) / 0.0010001, 1e-9);
    }
}

TEST(ConsoleNoise, AutoMuteOpensAndClosesWithTheSignal)
{
    for (const double rate : {44100.0, 192000.0}) {
        preamp::AutoMute mute;
        preamp::NoiseGenerator taps({11731, 19763, 767});
        mute.reset(rate);
        double gain = 0.0;
        const auto until = [&](double level, auto reached) {
            int samples = 0;
            while (!reached(gain = muteGain(mute, level, taps)) && samples < 2 * rate) ++samples;
            return samples / rate;
        };
        const double open = until(0.1, [](double g) { return g > 0.5; });
        until(0.1, [](double g) { return g > 0.9995; });
        const double hold = until(0.0, [](double g) { return g < 0.9; });
        const double half = until(0.0, [](double g) { return g < 0.1; });
        const double shut = until(0.0, [](double g) { return g < 0.001; });
        std::printf("auto mute at %.0f Hz: opens to half in %.0f ms; holds %.0f ms, to -20 dB %.0f ms, to "
                    "-60 dB %.0f ms more\n",
                    rate, 1e3 * open, 1e3 * hold, 1e3 * half, 1e3 * shut);
        // The envelope reaches its cap at once, three followers of 8 ms come behind it: half after 2.67 of
        // them.
        EXPECT_NEAR(open, 2.674 * 0.05 / 6.283, 0.003);
        // The window lasts 0.15 s, then four one-poles of 24 ms.
        EXPECT_GT(hold, 0.12);
        EXPECT_LT(hold, 0.22);
        EXPECT_NEAR(half + hold, 0.15 + 6.68 * 0.15 / 6.283, 0.04);
        EXPECT_LT(hold + half + shut, 0.5);
    }
}

TEST(ConsoleNoise, AutoMuteThroughTheModule)
{
    InputRig rig = noisy(7, 4, kNoiseAuto, 1.0);
    rig.run(silence(1.0));
    EXPECT_LT(peak(rig.run(silence(1.0))), 1e-9) << "silence mutes";
    rig.run(sine(0.01, 5000.0, 0.5));
    const Signal fade = rig.run(silence(1.0));
    std::printf("80s auto mute: 50 ms behind the signal %.1f dB, 500 ms %.1f dB\n", db(rms(fade, 2205, 2205)),
                db(rms(fade, 22050, 2205)));
    EXPECT_GT(db(rms(fade, 2205, 2205)), -70.0);
    EXPECT_LT(db(rms(fade, 22050, 2205)), -125.0);
}

// Like memory that another unit gave back: where the ring holds nothing yet, what lies there isn't heard.
TEST(ConsoleNoise, AutoMuteDoesNotHearWhatItsMemoryHeldBefore)
{
    constexpr int kFillsWithThirtyTwos = 0xBF; // the complement of each byte of 32.5
    const Signal signal = sine(0.0001, 1000.0, 0.05);
    InputRig fresh = noisy(7, 4, kNoiseAuto, 1.0);
    const Signal expected = fresh.run(signal);
    mallopt(M_PERTURB, kFillsWithThirtyTwos);
    InputRig used = noisy(7, 4, kNoiseAuto, 1.0);
    mallopt(M_PERTURB, 0);
    EXPECT_EQ(used.run(signal), expected);
}

TEST(ComponentSpread, UnitsDifferAndRepeatAfterSixteen)
{
    InputRig first(4);
    InputRig next(4);
    EXPECT_EQ(next.module->instanceIndex(), (first.module->instanceIndex() + 1) % 16);

    std::vector<Signal> outputs;
    for (int index = 0; index < 16; ++index) {
        InputRig a = noisy(index, 2, kNoiseOn, 1.0), b = noisy(index, 2, kNoiseOn, 1.0);
        outputs.push_back(a.run(sine(0.1, 100.0, 0.02)));
        EXPECT_EQ(outputs.back(), b.run(sine(0.1, 100.0, 0.02))) << "same set, same sound";
        EXPECT_NE(a.right, outputs.back()) << "rails have their own noise";
        for (int other = 0; other < index; ++other)
            ASSERT_NE(outputs[static_cast<unsigned>(other)], outputs.back());
    }
}

TEST(ComponentSpread, TheFirstUnitsValues)
{
    const preamp::ComponentSpread spread = preamp::componentSpread(0);
    EXPECT_EQ(spread.tolerance, (std::array{0.92, 1.19, 1.2, 0.89, 0.82, 0.97, 1.09, 0.89}));
    EXPECT_EQ(spread.noiseTrim, (std::array{0.83, 0.99}));
    EXPECT_EQ(spread.curveTrim, (std::array{0.99, 0.99}));
    EXPECT_EQ(spread.biasTrim, (std::array{0.92, 1.0}));
    const preamp::RailSeeds seeds = preamp::railSeeds(0);
    EXPECT_EQ(seeds.right.a, 11731u);
    EXPECT_EQ(seeds.left.a, 187696u);
    EXPECT_EQ(seeds.left.b, 158104u);
    EXPECT_EQ(seeds.left.c, 1534u);
}

} // namespace
} // namespace velmora::test
