#include "dsp/biquad_design.h"
#include "modules/input/tube_shaper.h"
#include "tests/modules/input/input_rig.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>

namespace velmora::test {
namespace {

using Complex = std::complex<double>;

constexpr std::array<const char*, 6> kNames{"-", "Gain", "Pre 60s", "Pre 70s", "Pre 80s", "ADC 90s"};
constexpr double kMiddleDrive = 31.622776601683793 * 4.0 * 0.31622777;

Complex zInverse(double hz, double rate)
{
    return std::polar(1.0, -2.0 * std::numbers::pi * hz / rate);
}

Complex response(const BiquadSettings& settings, double hz)
{
    const BiquadCoefficients c = designBiquad(settings);
    const Complex z = zInverse(hz, settings.sampleRate);
    return (c.b0 + c.b1 * z + c.b2 * z * z) / (1.0 + c.a1 * z + c.a2 * z * z);
}

// Second-order high-pass at 2 Hz, Q 0.5, by the bilinear transform.
Complex highPass2Hz(double hz, double rate)
{
    const Complex s =
        Complex(0.0, std::tan(std::numbers::pi * hz / rate) / std::tan(std::numbers::pi * 2.0 / rate));
    return s * s / ((s + 1.0) * (s + 1.0));
}

double biasedStageGain(double a, double inGain, double outGain)
{
    const double z = (2.8 - 1.5 * a) * 0.2 * a;
    return inGain * (2.0 * z * z + 30.0) / (9.6 * z * z + 30.0) * 2.0 / std::atan(2.0) * 0.25 * 1.07 *
           outGain;
}

/// Gain of a small signal at the middle drive, from the chain's laws with every curve replaced by its slope.
double smallSignalGain(int type, double hz, double rate, double drive = kMiddleDrive)
{
    using enum StripBiquadKind;
    const auto band = [&](double f, double q, double k) {
        return 1.0 - k * response({BandPass, f, q, 0.0, rate}, hz);
    };
    const auto bump = [&](double f, double q, double g) { return response({Peaking, f, q, g, rate}, hz); };
    const double clipper = 0.7071 * 0.7071 * 0.25 * 8.0 * 1.4142 * 1.4142;
    Complex gain = drive * std::pow(drive, -0.9576);
    if (type == 2) {
        const double shape = 8.0 / std::pow(16.0, 0.6), root = std::pow(shape, 0.125);
        const double slope = 1.1 - shape / 8.0;
        const double bent = std::tanh(std::pow(slope * 0.7071, shape) * root) / root;
        const double makeUp = 0.7071 * slope / std::pow(bent, 1.0 / shape);
        gain *= biasedStageGain(0.7, 0.28284, 3.5355) * band(1400.0, 1.0, 0.0315 * 0.5) * 0.176775 * 0.7071 *
                0.125 * makeUp * 20.166514627199998 * 5.656908499505021 * bump(33.0, 0.33, 2.2);
    }
    if (type == 3) {
        // The bias tilts the even-harmonic stage's parabola.
        const double bias = std::pow(256.0, std::sqrt(0.5)) / 256.0 * 0.0625 * 0.125;
        const double share = 1.0 - std::exp(-18849.55592153876 / rate);
        gain *= 1.0 - 0.5 * bias * share / (1.0 - (1.0 - share) * zInverse(hz, rate));
        gain *= biasedStageGain(0.5, 0.35, 1.0 / 0.35) * band(2400.0, 0.7, 0.007) * 0.06125 * clipper * 16.0 *
                highPass2Hz(hz, rate) * bump(22.0, 0.42, 2.5);
    }
    if (type == 4)
        gain *= std::pow(10.0, -0.1) * 0.5 * band(7400.0, 0.5, 0.002) * 0.06 * clipper * std::pow(10.0, 0.1) /
                0.06 * highPass2Hz(hz, rate) * bump(28.0, 0.7, 0.5);
    return std::abs(gain);
}

// The converter's steps need a larger tone.
double toneLevel(int type)
{
    return type == 5 ? 0.25 : 1e-6;
}

double measuredGain(InputRig& rig, int type, double hz)
{
    const double seconds = 1.25;
    const auto from = static_cast<std::size_t>(rig.rate * 0.25);
    // The bias' start-up transient of the 70s isn't the tone's.
    rig.run(silence(2.0, rig.rate));
    const Signal out = rig.run(sine(toneLevel(type), hz, seconds, rig.rate));
    return std::abs(tone(out, hz, from, static_cast<std::size_t>(rig.rate), rig.rate)) / toneLevel(type);
}

TEST(Consoles, SmallSignalGainFollowsTheLaws)
{
    for (const double rate : {44100.0, 96000.0}) {
        for (int type = 2; type <= 5; ++type) {
            for (const double hz : {30.0, 100.0, 1000.0, 7000.0}) {
                InputRig rig(type, rate);
                const double expected = smallSignalGain(type, hz, rate);
                const double measured = measuredGain(rig, type, hz);
                std::printf("%s %6.0f Hz at %.0f: %+.4f dB, law %+.4f dB\n", kNames[type], hz, rate,
                            db(measured), db(expected));
                // The converter's steps and the interpolation's loss in the treble are its own.
                const double tolerance = type < 5 ? 0.002 : hz < 2000.0 ? 0.02 : 0.3;
                EXPECT_NEAR(db(measured), db(expected), tolerance);
            }
        }
    }
}

TEST(Consoles, DriveChangesTheLevelByAsLittleAsItsLawSays)
{
    for (int type = 2; type <= 5; ++type) {
        std::printf("%s gain by drive:", kNames[type]);
        for (const double v : {0.0, 0.25, 0.5, 0.75, 1.0}) {
            InputRig rig(type);
            rig.set(InputRig::kDrive, v);
            rig.module->reset();
            const double drive = std::pow(1000.0, v) * 4.0 * 0.31622777;
            const double measured = measuredGain(rig, type, 1000.0);
            std::printf(" %+.2f", db(measured));
            // The converter has too few codes at low drive and clips at high drive.
            if (type == 5) continue;
            EXPECT_NEAR(db(measured), db(smallSignalGain(type, 1000.0, kRate, drive)), 0.005);
        }
        std::printf(" dB\n");
    }
}

std::array<double, 6> harmonics(int type, double amplitude, double drive)
{
    InputRig rig = InputRig::unit(0, type);
    rig.set(InputRig::kDrive, drive);
    rig.module->reset();
    const Signal out = rig.run(sine(amplitude, 1000.0, 4.0));
    std::array<double, 6> level{};
    for (std::size_t n = 1; n <= 5; ++n)
        level[n] = std::abs(tone(out, 1000.0 * static_cast<double>(n), 3 * 44100, 44100));
    std::printf("%s, %.0f dB, drive %.1f: fundamental %+.2f dB, harmonics 2..5 %.1f %.1f %.1f %.1f dB\n",
                kNames[static_cast<unsigned>(type)], db(amplitude), drive, db(level[1]),
                db(level[2] / level[1]), db(level[3] / level[1]), db(level[4] / level[1]),
                db(level[5] / level[1]));
    return level;
}

TEST(Consoles, HarmonicsTellTheDecadesApart)
{
    for (const double amplitude : {0.125, 0.5, 1.0}) {
        const auto tube = harmonics(2, amplitude, 0.5);
        const auto biased = harmonics(3, amplitude, 0.5);
        const auto symmetric = harmonics(4, amplitude, 0.5);
        harmonics(5, amplitude, 0.5);
        EXPECT_GT(db(tube[2] / tube[1]), -80.0) << "the tube is asymmetric";
        EXPECT_GT(db(biased[2] / biased[1]), -90.0) << "a bias makes even harmonics";
        EXPECT_LT(db(symmetric[2] / symmetric[1]), -110.0) << "no bias, no even harmonics";
    }
    for (int type = 2; type <= 4; ++type)
        EXPECT_GT(harmonics(type, 0.5, 0.9)[3], 3.0 * harmonics(type, 0.5, 0.5)[3]);
}

// Of |sin| sin the third harmonic is -8 / 15 pi: for the clipper's parabola and for the square of the
// low-passed signal with its sign.
TEST(Consoles, ThirdHarmonicOfTheClipper)
{
    const double amplitude = 0.5, hz = 1000.0;
    const double a = amplitude * kMiddleDrive * std::pow(10.0, -0.1) * 0.5 * 0.06 * 0.7071 * 0.7071 * 0.25;
    const double share = 1.0 - std::exp(-18849.55592153876 / kRate);
    const Complex lowPass = share / (1.0 - (1.0 - share) * zInverse(hz, kRate));
    const double third = 8.0 / (15.0 * std::numbers::pi);
    const Complex turn = std::polar(1.0, 3.0 * std::arg(lowPass));
    const Complex sum = a * a / 8.0 * third + a * a / 4.0 * std::norm(lowPass) * third * turn;
    const auto level = harmonics(4, amplitude, 0.5);
    const double expected = std::abs(sum) / a;
    std::printf("third harmonic of the 80s: %.2f dB, law %.2f dB\n", db(level[3] / level[1]), db(expected));
    EXPECT_NEAR(db(level[3] / level[1]), db(expected), 0.5);
}

TEST(Consoles, TubeIsTransparentBelowAndCompressesAbove)
{
    preamp::TubeShaper tube;
    const auto settled = [&tube](double x) {
        tube.setSampleRate(kRate);
        preamp::RailPiece piece;
        for (int i = 0; i < 70; ++i) {
            piece.samples.fill(x);
            tube.run(piece, preamp::kPiece);
        }
        return piece.samples.back() / x;
    };
    const double base = settled(1e-6);
    for (const double x : {0.01, 0.1, 0.5, 2.0})
        std::printf("tube at %.2f: up %.3f, down %.3f of its small-signal gain\n", x, settled(x) / base,
                    settled(-x) / base);
    EXPECT_NEAR(settled(-1e-6), base, 1e-3 * base);
    EXPECT_NEAR(settled(0.1), base, 0.001 * base);
    EXPECT_LT(settled(2.0), 0.6 * base);
    EXPECT_GT(settled(2.0) - settled(-2.0), 0.01 * base)
        << "the halves are compressed along different curves";
}

TEST(Consoles, SaturationMeterReadsTheDecadesScale)
{
    // Behind the 80s' first stage the scale is linear: 1.68 x a quarter of the level at the clipper.
    InputRig rig(4);
    rig.run(Signal(22050, 0.5));
    const double a = 0.5 * kMiddleDrive * std::pow(10.0, -0.1) * 0.5 * 0.06 * 0.7071 * 0.7071 * 0.25;
    std::printf("saturation of the 80s at -6 dB: %.4f\n", rig.meter(4));
    EXPECT_NEAR(rig.meter(4), a * 1.68, 1e-6);
    for (int type = 2; type <= 4; ++type) {
        InputRig loud(type);
        loud.run(sine(30.0, 1000.0, 0.1));
        EXPECT_GT(loud.meter(4), 0.9) << kNames[static_cast<unsigned>(type)];
        EXPECT_LE(loud.meter(4), 1.0);
        loud.run(silence(2.0));
        EXPECT_LT(loud.meter(4), 0.01);
    }
}

} // namespace
// A step that ends in a Type write: what rings on behind it in silence.
double tailBehindTypeWrite(InputRig& rig, int type, std::size_t samples)
{
    rig.run(Signal(4096, 0.5));
    rig.set(InputRig::kType, type / 15.0);
    return peak(rig.run(Signal(samples, 0.0), 1));
}

TEST(Consoles, ATypeWriteClearsTheSectionsOfTheDecade)
{
    const auto tail = [](int type) { // of the bandwidth filter, the only one that an attenuated step leaves
        InputRig rig(2);
        rig.set(InputRig::kNoiseIn, 1.0);
        rig.set(InputRig::kNoiseLevel, 0.0);
        return tailBehindTypeWrite(rig, type, 3);
    };
    const double analog = tail(2);
    const double converter = tail(5);
    std::printf("60s with noise, a step's tail behind a Type write: 60s %.2e, 90s %.2e\n", analog, converter);
    EXPECT_LT(analog, 1e-4);
    EXPECT_GT(converter, 0.01) << "the converter takes the filters over as they are";
}

TEST(Consoles, ATypeWriteLeavesTheHighPassRunning)
{
    InputRig rig(4); // 80s: no bias, so nothing but the high-pass rings on
    const double tail = tailBehindTypeWrite(rig, 4, 64);
    std::printf("80s, a step's tail behind a Type write: %.3f\n", tail);
    EXPECT_GT(tail, 0.1);
}

} // namespace velmora::test
