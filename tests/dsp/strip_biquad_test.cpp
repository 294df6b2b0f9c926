#include "dsp/strip_biquad.h"
#include "tests/dsp/biquad_response.h"
#include "tests/plain/plain_section.h"
#include "tests/support/gap.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <random>
#include <vector>

namespace velmora::test {
namespace {

using Kind = StripBiquadKind;

constexpr int kGlide = 2646;
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

// A section that runs its design from the first sample.
StripBiquad landed(Kind kind, double hz, double q = 1.0, double db = 0.0, double rate = 44100.0)
{
    StripBiquad section(kind, hz, q, db);
    section.setEnabled(true);
    section.setSampleRate(rate);
    section.resetState();
    return section;
}

std::vector<double> noise(std::size_t count, unsigned seed = 1, double level = 1.0)
{
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> range(-level, level);
    std::vector<double> samples(count);
    for (double& x : samples) x = range(random);
    return samples;
}

TEST(StripBiquad, ImpulseResponseIsItsDesign)
{
    double worst = 0.0;
    for (int kind = 1; kind <= 10; ++kind) {
        StripBiquad section = landed(static_cast<Kind>(kind), 3000.0, 1.5, 7.0);
        const BiquadCoefficients design = designBiquad({static_cast<Kind>(kind), 3000.0, 1.5, 7.0, 44100.0});
        std::vector<double> impulse(4096);
        impulse[0] = 1.0;
        section.runBlock(impulse.data(), 4096);
        for (double hz : {100.0, 2900.0, 3000.0, 15000.0}) {
            std::complex<double> sum = 0.0;
            for (std::size_t i = 0; i < impulse.size(); ++i)
                sum += impulse[i] *
                       std::polar(1.0, -2.0 * std::numbers::pi * hz / 44100.0 * static_cast<double>(i));
            worst = std::max(worst, std::abs(sum - response(design, hz, 44100.0)));
        }
    }
    std::printf("impulse response against the design, largest distance %.2e\n", worst);
    EXPECT_LT(worst, 1e-10);
}

TEST(StripBiquad, SettersClamp)
{
    StripBiquad section;
    section.setFrequency(0.0);
    EXPECT_EQ(section.frequency(), 0.001);
    section.setFrequency(1e9);
    EXPECT_EQ(section.frequency(), 44100.0);
    section.setQ(0.0);
    EXPECT_EQ(section.q(), 0.0001);
    section.setQ(1e9);
    EXPECT_EQ(section.q(), 1000.0);
    section.setGainDb(-1e9);
    EXPECT_EQ(section.gainDb(), -1000.0);
    section.setGainDb(1e9);
    EXPECT_EQ(section.gainDb(), 1000.0);
    section.setSampleRate(8000.0);
    EXPECT_EQ(section.sampleRate(), 44100.0);
    section.setSampleRate(1e9);
    EXPECT_EQ(section.sampleRate(), 384000.0);
    for (int kind : {-1, 11, 1 << 30}) {
        section.setKind(7);
        section.setKind(kind);
        EXPECT_EQ(section.kind(), Kind::None);
    }
    section.initStripBiquad(44100.0, Kind::LowPass, 90000.0, 0.0, 2000.0);
    EXPECT_EQ(section.frequency(), 90000.0);
    EXPECT_EQ(section.q(), 0.0);
    EXPECT_EQ(section.gainDb(), 2000.0);
}

TEST(StripBiquad, AGlideLasts2646SamplesAtAnyRate)
{
    for (double rate : {44100.0, 48000.0, 96000.0, 384000.0}) {
        StripBiquad section = landed(Kind::LowPass, 500.0, 1.0, 0.0, rate);
        section.setFrequency(2000.0);
        int samples = 0;
        for (; section.glide().gliding(); ++samples) section.runSample(0.5);
        std::printf("glide at %.0f Hz: %d samples, %.1f ms\n", rate, samples, 1000.0 * samples / rate);
        EXPECT_EQ(samples, kGlide);
    }
}

// A redesign must not move the output on the sample where it happens: compare with a twin left alone.
TEST(StripBiquad, RedesignDoesNotJump)
{
    double worst = 0.0;
    double landingStep = 0.0;
    for (int kind : {1, 3, 4, 5, 6, 7, 8, 9, 10}) {
        StripBiquad section = landed(Kind::Peaking, 700.0, 1.0, 12.0);
        const auto sine = [](int i) { return std::sin(2.0 * std::numbers::pi * 220.0 / 44100.0 * i); };
        for (int i = 0; i < 4000; ++i) section.runSample(sine(i));
        StripBiquad twin = section;
        section.setKind(kind);
        worst = std::max(worst, gapBetween(section.runSample(sine(4000)), twin.runSample(sine(4000))));
        for (int i = 4001; section.glide().gliding(); ++i) section.runSample(sine(i));
        StripBiquad snapped = section;
        snapped.snapToTarget();
        landingStep = std::max(landingStep, gapBetween(section.runSample(0.1), snapped.runSample(0.1)));
    }
    std::printf("redesign moves its first sample by at most %.2e; landing by %.2e\n", worst, landingStep);
    EXPECT_LT(worst, 5e-3);
    EXPECT_EQ(landingStep, 0.0);
}

TEST(StripBiquad, WildAutomationStaysBounded)
{
    std::mt19937 random(3);
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    StripBiquad section = landed(Kind::Peaking, 1000.0);
    const std::vector<double> input = noise(200000, 4);
    double peak = 0.0;
    for (std::size_t i = 0; i < input.size(); ++i) {
        if (i % 64 == 0) {
            section.setFrequency(20.0 * std::pow(1000.0, unit(random)));
            section.setQ(0.3 + 5.0 * unit(random));
            section.setGainDb(36.0 * unit(random) - 18.0);
            if (i % 1024 == 0) section.setKind(static_cast<int>(11.0 * unit(random)));
        }
        peak = std::max(peak, std::fabs(section.runSample(input[i])));
    }
    std::printf("peak under automation of kind, frequency, Q and gain: %.2f\n", peak);
    EXPECT_LT(peak, 64.0); // +18 dB of gain, with room for ringing
}

TEST(StripBiquad, BlockFormEqualsSampleForm)
{
    for (bool softLimit : {false, true}) {
        StripBiquad bySample = landed(Kind::LowPass, 800.0, 4.0);
        bySample.setSoftLimit(softLimit);
        bySample.setSoftLimitAmount(3000.0);
        StripBiquad byBlock = bySample;
        std::vector<double> block = noise(6000, 5);
        const std::vector<double> input = block;
        int at = 0;
        for (int count : {1, 63, 64, 0, -5, 1000, 2000, 2872}) {
            if (at == 128) { // both forms glide from here on
                bySample.setFrequency(3000.0);
                byBlock.setFrequency(3000.0);
                byBlock.runBlock(block.data(), 0);
                byBlock.runBlock(block.data(), -1);
                EXPECT_EQ(byBlock.glide().samplesLeft(), static_cast<std::uint32_t>(kGlide));
            }
            byBlock.runBlock(block.data() + at, count);
            for (int i = at; i < at + count; ++i)
                ASSERT_EQ(block[static_cast<std::size_t>(i)],
                          bySample.runSample(input[static_cast<std::size_t>(i)]));
            at += std::max(count, 0);
        }
        ASSERT_EQ(at, 6000);
    }
}

/// A sample as rough as they come: mostly noise some decades around a level, now and then silence, denormals,
/// infinity or NaN.
double roughSample(std::mt19937& random, double level)
{
    std::uniform_real_distribution<double> unit(-1.0, 1.0);
    const auto dice = random() % 200;
    if (dice == 0) return kNaN;
    if (dice == 1) return unit(random) < 0.0 ? -kInfinity : kInfinity;
    if (dice < 6) return 3e-310 * unit(random);
    if (dice < 60) return 0.0;
    return level * unit(random) * std::pow(10.0, 8.0 * unit(random) - 4.0);
}

/// One operation of a random script on both sections.
template <typename Section>
void apply(Section& section, unsigned operation, double a, double b)
{
    const double hz = 5.0 * std::pow(5000.0, a);
    const double q = 0.05 * std::pow(400.0, b);
    switch (operation) {
    case 0:
        return section.setKind(static_cast<int>(13.0 * a) - 1);
    case 1:
    case 2:
        return section.setFrequency(hz);
    case 3:
        return section.setQ(q);
    case 4:
        return section.setGainDb(40.0 * a - 20.0);
    case 5:
        return section.setDesign(static_cast<Kind>(1 + static_cast<int>(9.99 * a)), hz, q, 30.0 * b - 15.0);
    case 6:
        return section.setSampleRate(a < 0.5 ? 44100.0 : 384000.0 * b);
    case 7:
        return section.setEnabled(a < 0.8);
    case 8:
        return section.setSoftLimit(a < 0.3);
    case 9:
        return section.setSoftLimitAmount(5000.0 * a);
    case 10:
        return section.resetState();
    case 11:
        return a < 0.5 ? section.snapToTarget() : section.snapCoefficients();
    default:
        return section.setTargetCoefficients(designBiquad({Kind::Peaking, hz, q, 6.0, 44100.0}));
    }
}

// Setters design late and blocks run split, yet nothing tells the section from one that designs with every
// setter and asks everything again on every sample.
TEST(StripBiquad, EqualsThePlainSectionInAnyScript)
{
    std::mt19937 random(8);
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    std::size_t samples = 0;
    for (int script = 0; script < 300; ++script) {
        const double level = script % 3 == 0 ? 1e-29 : 1.0; // the flush acts, or not
        StripBiquad section(Kind::Peaking, 1000.0, 1.0, 6.0);
        plain::Section plainly({Kind::Peaking, 1000.0, 1.0, 6.0, 44100.0});
        for (int round = 0; round < 60; ++round) {
            for (auto setters = random() % 5; setters != 0; --setters) {
                const unsigned operation = static_cast<unsigned>(random() % 13);
                const double a = unit(random);
                const double b = unit(random);
                apply(section, operation, a, b);
                apply(plainly, operation, a, b);
            }
            const int form = static_cast<int>(random() % 4);
            std::vector<double> fast(random() % (round % 8 == 0 ? 4096 : 70));
            for (double& x : fast) x = roughSample(random, level);
            std::vector<double> slow = fast;
            if (form < 2) {
                section.runBlock(fast.data(), static_cast<int>(fast.size()));
                plainly.runBlock(slow.data(), static_cast<int>(slow.size()));
            } else {
                for (double& x : fast) x = form == 2 ? section.runSample(x) : section.runSampleFixed(x);
                for (double& x : slow) x = form == 2 ? plainly.runSample(x) : plainly.runSampleFixed(x);
            }
            for (std::size_t i = 0; i < fast.size(); ++i)
                ASSERT_TRUE(std::bit_cast<std::uint64_t>(fast[i]) == std::bit_cast<std::uint64_t>(slow[i]) ||
                            (std::isnan(fast[i]) && std::isnan(slow[i])))
                    << "script " << script << ", round " << round << ", sample " << i << ": " << fast[i]
                    << " for " << slow[i];
            ASSERT_EQ(section.lastOutput(), plainly.lastOutput());
            samples += fast.size();
            if (random() % 4 != 0) continue; // looking settles a design, which is to come about otherwise too
            ASSERT_EQ(section.glide().samplesLeft(), plainly.glide().samplesLeft());
            ASSERT_EQ(section.glide().current().a2, plainly.glide().current().a2);
        }
    }
    std::printf("%zu samples of 300 scripts, all equal\n", samples);
}

TEST(StripBiquad, FixedFormRunsTheTargetAndLeavesTheGlide)
{
    StripBiquad gliding = landed(Kind::HighPass, 200.0);
    gliding.setFrequency(4000.0);
    StripBiquad atTarget = gliding;
    atTarget.snapToTarget();
    for (double x : noise(500)) ASSERT_EQ(gliding.runSampleFixed(x), atTarget.runSample(x));
    EXPECT_EQ(gliding.glide().samplesLeft(), static_cast<std::uint32_t>(kGlide));
}

TEST(StripBiquad, IsUnityUntilDesignedWhileEnabled)
{
    StripBiquad section(Kind::LowPass, 200.0);
    section.setQ(3.0);
    section.setEnabled(true);
    for (double x : noise(100)) ASSERT_EQ(section.runSample(x), x);
    section.setFrequency(200.0);
    EXPECT_TRUE(section.glide().gliding());
    section.resetState();
    EXPECT_NEAR(section.runSample(1.0), designBiquad({Kind::LowPass, 200.0, 3.0, 0.0, 44100.0}).b0, 1e-15);
}

TEST(StripBiquad, DisabledPassesAndFreezes)
{
    // Disabling lands on the last design and clears the history; so does enabling again.
    StripBiquad section = landed(Kind::LowPass, 200.0);
    for (double x : noise(100)) section.runSample(x);
    section.setEnabled(false);
    std::vector<double> block = noise(64, 6);
    const std::vector<double> input = block;
    section.runBlock(block.data(), 64);
    EXPECT_EQ(block, input);
    EXPECT_EQ(section.runSample(0.7), 0.7);
    section.setEnabled(true);
    StripBiquad fresh = landed(Kind::LowPass, 200.0);
    for (double x : input) ASSERT_EQ(section.runSample(x), fresh.runSample(x));

    // A setter while disabled aims at unity, and the glide stands still.
    section.setEnabled(false);
    section.setFrequency(900.0);
    section.runBlock(block.data(), 64);
    section.runSample(1.0);
    EXPECT_EQ(section.glide().samplesLeft(), static_cast<std::uint32_t>(kGlide));
    EXPECT_EQ(section.glide().target().b0, 1.0);

    // Off and on without a sample in between clears the history too.
    StripBiquad toggled = landed(Kind::LowPass, 200.0);
    for (double x : input) toggled.runSample(x);
    toggled.setEnabled(false);
    toggled.setEnabled(true);
    EXPECT_EQ(toggled.runSample(0.5), landed(Kind::LowPass, 200.0).runSample(0.5));

    // Repeating the flag does nothing: neither history nor glide is touched.
    StripBiquad running = landed(Kind::LowPass, 200.0);
    running.setFrequency(900.0);
    running.runSample(1.0);
    StripBiquad twin = running;
    running.setEnabled(true);
    for (double x : input) ASSERT_EQ(running.runSample(x), twin.runSample(x));
}

TEST(StripBiquad, KindNonePassesEverything)
{
    StripBiquad section = landed(Kind::None, 200.0);
    section.setQ(2.0);
    EXPECT_EQ(section.runSample(0.3), 0.3);
    EXPECT_TRUE(std::isnan(section.runSample(kNaN)));
    EXPECT_EQ(section.glide().samplesLeft(), static_cast<std::uint32_t>(kGlide));
}

TEST(StripBiquad, HealsFromNaN)
{
    StripBiquad section = landed(Kind::LowPass, 2000.0, 2.0);
    EXPECT_EQ(section.runSample(kNaN), 0.0);
    StripBiquad fresh = landed(Kind::LowPass, 2000.0, 2.0);
    for (double x : noise(100)) ASSERT_EQ(section.runSample(x), fresh.runSample(x));

    // An infinity makes NaN inside the recursion. Neither form lets it out, and the sample form, which drops
    // the older output too, is back to a finite signal at once.
    StripBiquad bySample = landed(Kind::LowPass, 2000.0, 2.0);
    StripBiquad byBlock = bySample;
    std::vector<double> block(16, 0.5);
    block[1] = kInfinity;
    for (std::size_t i = 0; i < block.size(); ++i) {
        const double y = bySample.runSample(block[i]);
        EXPECT_FALSE(std::isnan(y)) << i;
        EXPECT_TRUE(i < 5 || std::isfinite(y)) << i;
    }
    byBlock.runBlock(block.data(), 16);
    for (double y : block) EXPECT_FALSE(std::isnan(y));
    for (double x : noise(2000)) ASSERT_LT(std::fabs(bySample.runSample(x)), 10.0);
    byBlock.resetState();
    for (double x : noise(2000)) ASSERT_LT(std::fabs(byBlock.runSample(x)), 10.0);
}

// The limit works on the fed-back output: the first sample shows its curve, a resonance shows the feedback.
TEST(StripBiquad, SoftLimitBendsTheResonance)
{
    for (double rate : {44100.0, 96000.0}) {
        StripBiquad section = landed(Kind::HighPass, 400.0, 2.0, 0.0, rate);
        section.setSoftLimitAmount(5000.0);
        section.setSoftLimit(true);
        section.setFrequency(3000.0); // the limit follows frequency, Q and rate
        section.resetState();
        const double k = 2.0 * (44100.0 / rate) * 5.0 * (2.0 * 3000.0 / rate) / std::pow(2.0, 0.75);
        const double straight = 10.0 * section.glide().target().b0;
        EXPECT_NEAR(section.runSample(10.0), straight / (straight * k + 1.0), 1e-12);
    }
    StripBiquad limited = landed(Kind::LowPass, 1000.0, 20.0);
    StripBiquad straight = limited;
    limited.setSoftLimitAmount(1000.0);
    limited.setSoftLimit(true);
    double limitedPeak = 0.0;
    double straightPeak = 0.0;
    for (int i = 0; i < 8000; ++i) {
        const double x = std::sin(2.0 * std::numbers::pi * 1000.0 / 44100.0 * i);
        limitedPeak = std::max(limitedPeak, std::fabs(limited.runSample(x)));
        straightPeak = std::max(straightPeak, std::fabs(straight.runSample(x)));
    }
    std::printf("resonance of Q 20: %.2f, soft limited %.2f\n", straightPeak, limitedPeak);
    EXPECT_GT(straightPeak, 19.0);
    EXPECT_LT(limitedPeak, 0.5 * straightPeak);
}

TEST(StripBiquad, DecaysToSilenceWithoutDenormals)
{
    StripBiquad section = landed(Kind::Peaking, 50.0, 8.0, 12.0);
    section.runSample(1.0);
    double smallest = 1.0;
    for (int i = 0; i < 2000000; ++i) {
        const double y = std::fabs(section.runSample(0.0));
        if (y > 0.0) smallest = std::min(smallest, y);
    }
    std::printf("smallest output other than 0 in the tail: %.2e\n", smallest);
    EXPECT_GT(smallest, 1e-100);
}

} // namespace
} // namespace velmora::test
