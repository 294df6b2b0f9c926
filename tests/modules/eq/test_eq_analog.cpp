#include "tests/modules/eq/eq_rig.h"
#include "tests/support/gap.h"

#include <gtest/gtest.h>

#include <cstdio>

namespace velmora::test {
namespace {

// The output stage at a steady level, by flavour.
double staticCurve(EqFlavour flavour, double x)
{
    switch (flavour) {
    case EqFlavour::Sorrel:
        return 16.0 * std::atan(x / 16.0);
    case EqFlavour::Tamarin:
        return x > 0.0 ? 16.0 * std::tanh(x / 16.0) : 8.0 * std::atan(x / 8.0);
    case EqFlavour::Juniper:
        return x > 0.0 ? 8.0 * std::tanh(x / 8.0) : 16.0 * std::atan(x / (1.0 - 0.02 * x) / 16.0);
    }
    return 0.0;
}

TEST(EqAnalog, StaticCurveOfTheOutputStage)
{
    for (EqFlavour flavour : kFlavours) {
        EqRig rig(flavour);
        rig.setAllIn(0.0);
        rig.set(Analog, 1.0);
        for (double level : {-12.0, -4.0, -1.0, -0.1, 0.1, 1.0, 4.0, 12.0}) {
            const double got = rig.run(Signal(9600, level)).back();
            std::printf("%s %5.1f -> %.6f\n", name(flavour), level, got);
            EXPECT_NEAR(got, staticCurve(flavour, level), 1e-10);
        }
    }
}

TEST(EqAnalog, HarmonicsGrowWithLevelAndShowTheSymmetry)
{
    constexpr double kRate = 48000.0;
    constexpr double kTone = 100.0;
    for (EqFlavour flavour : kFlavours) {
        EqRig rig(flavour, kRate);
        rig.setAllIn(0.0);
        rig.set(Analog, 1.0);
        std::array<double, 2> second{}, third{};
        for (unsigned i = 0; i < 2; ++i) {
            const Signal y = rig.run(sine(kTone, kRate, i == 0 ? 0.5 : 1.0, 2.0));
            const auto level = [&](double hz) { return std::abs(bin(y, hz, kRate, y.size() / 2)); };
            second[i] = db(level(2.0 * kTone) / level(kTone) + 1e-16);
            third[i] = db(level(3.0 * kTone) / level(kTone) + 1e-16);
        }
        std::printf("%s at -6 dB: H2 %.1f H3 %.1f, at 0 dB: H2 %.1f H3 %.1f dB\n", name(flavour), second[0],
                    third[0], second[1], third[1]);
        // The leading term is cubic; Juniper's sag adds a term that bends where the sign changes.
        if (flavour == EqFlavour::Juniper)
            EXPECT_GT(third[1] - third[0], 6.02);
        else
            EXPECT_NEAR(third[1] - third[0], 12.04, 0.6);
        if (flavour == EqFlavour::Sorrel)
            EXPECT_LT(second[1], -200.0); // odd curve
        else
            EXPECT_GT(second[1], -100.0);
    }
}

// The drive of the output stage is low-passed, so at 15 kHz the sections' own softening is what gives way.
TEST(EqAnalog, SectionsGiveWayToLoudMaterial)
{
    constexpr double kRate = 48000.0;
    const auto loss = [&](EqFlavour flavour, double analog) {
        EqRig rig(flavour, kRate);
        rig.set(EqBand::High, Gain, 0.8);
        rig.set(EqBand::High, Freq, 0.9);
        rig.set(EqBand::HighMid, Gain, 0.2);
        rig.set(Analog, analog);
        rig.module.reset();
        const auto gain = [&](double level) {
            const Signal y = rig.run(sine(15000.0, kRate, level, 0.5));
            return std::abs(bin(y, 15000.0, kRate, y.size() / 2)) / level;
        };
        const double quiet = gain(1e-4);
        return db(quiet / gain(1.0));
    };
    for (EqFlavour flavour : kFlavours) {
        const double on = loss(flavour, 1.0);
        std::printf("%s loses %.4f dB at 15 kHz, 0 dB against -80 dB\n", name(flavour), on);
        EXPECT_GT(on, 0.005);
        EXPECT_LT(on, 1.2); // an eighth of a section's output at most
        EXPECT_NEAR(loss(flavour, 0.0), 0.0, 1e-9);
    }
}

TEST(EqAnalog, DepthIsTakenWhenAnalogIsWritten)
{
    EqSection section;
    section.setEnabled(true);
    section.setSampleRate(96000.0);
    section.setDesign({StripBiquadKind::Peaking, 3000.0, 0.5, 12.0});
    EXPECT_EQ(section.analogDepth(), 0.0001);
    section.setAnalog(true);
    const double depth = 0.4 * (44100.0 / 96000.0) * std::sqrt(6000.0 / 96000.0) / std::pow(0.5, 0.75);
    EXPECT_DOUBLE_EQ(section.analogDepth(), depth);
    section.setDesign({StripBiquadKind::Peaking, 300.0, 2.0, 6.0});
    EXPECT_DOUBLE_EQ(section.analogDepth(), depth);
    section.setAnalog(false);
    EXPECT_EQ(section.analogDepth(), 0.0001);
}

// The softening worked out once more beside the section, on its clean output.
TEST(EqAnalog, SofteningStandsBehindTheRecursion)
{
    const EqSectionSettings settings{StripBiquadKind::LowPass, 2000.0, 0.7, 0.0};
    EqSection clean, soft;
    for (EqSection* section : {&clean, &soft}) {
        section->setEnabled(true);
        section->setDepthShare(0.125);
        section->setDesign(settings);
        section->reset();
    }
    soft.setAnalog(true);
    const double lowRate = 1.0 - std::exp(-3.1415 * (0.5 * 2000.0 / 44100.0 + 0.01));
    const double bandRate = 1.0 - std::exp(-3.1415 * 7000.0 / 44100.0);
    double low = 0.0, band = 0.0, worst = 0.0, deepest = 1.0;
    for (double x : noise(4000, 30.0)) {
        const double y = clean.process(x);
        low += (y - low) * lowRate;
        band += (y - low - band) * bandRate;
        const double gain = 0.125 / (1.0 + std::fabs(band) * soft.analogDepth() * 0.125) + 0.875;
        worst = std::max(worst, gapBetween(soft.process(x), y * gain));
        deepest = std::min(deepest, gain);
    }
    std::printf("deepest softening %.4f, worst difference %.1e\n", deepest, worst);
    EXPECT_LT(worst, 1e-12);
    EXPECT_LT(deepest, 0.99);
}

} // namespace
} // namespace velmora::test
