#include "params/catalogue.h"
#include "tests/modules/output/output_rig.h"
#include "tests/support/gap.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <random>

namespace velmora::test {
namespace {

constexpr std::array kRates{44100.0, 96000.0, 384000.0};

// Gain of the module at rest for a normalised fader value, in linear terms.
double steadyGain(double value)
{
    OutputRig rig;
    rig.set(OutputRig::Gain, value);
    rig.module.reset();
    return rig.run({0.5})[0] / 0.5;
}

TEST(Fader, FollowsItsLawInDb)
{
    EXPECT_EQ(steadyGain(0.0), 0.0);
    for (double value : {1e-6, 0.1, 0.5, 0.75, 0.7511, 0.9, 1.0}) {
        const double db = 20.0 * std::log10(steadyGain(value));
        std::printf("fader %.4f: %.5f dB\n", value, db);
        EXPECT_NEAR(db, 110.0 * std::pow(value, 0.333) - 100.0, 1e-9);
    }
    EXPECT_NEAR(20.0 * std::log10(steadyGain(0.7511)), 0.0, 2e-5);
    EXPECT_NEAR(20.0 * std::log10(steadyGain(1.0)), 10.0, 1e-9);
}

// Three equal one-poles in a row: after n samples the share left of a step is (1 - c)^n times the sum of
// C(n + k - 1, k) c^k for k = 0..2.
TEST(Fader, GlidesThroughThreeStages)
{
    for (double rate : kRates) {
        OutputRig rig(rate);
        rig.set(OutputRig::Gain, 0.0);
        const std::vector<double> y = rig.run(rig.constant(0.5, 1.0));
        const double c = 44.1000020946376 / rate;
        double worst = 0.0;
        for (std::size_t i = 0; i < y.size(); ++i) {
            const double n = static_cast<double>(i + 1);
            const double left = std::pow(1.0 - c, n) * (1.0 + n * c + n * (n + 1.0) / 2.0 * c * c);
            worst = std::max(worst, gapBetween(y[i], left));
        }
        const auto half = std::find_if(y.begin(), y.end(), [](double v) { return v < 0.5; }) - y.begin();
        std::printf("fade out at %.0f Hz: half after %.1f ms, from the closed form %.1e\n", rate,
                    1000.0 * static_cast<double>(half) / rate, worst);
        EXPECT_LT(worst, 1e-11);
        EXPECT_NEAR(static_cast<double>(half) / rate, 0.0606, 0.0005);
        EXPECT_LT(rig.run(rig.constant(2.0, 1.0)).back(), 1e-20); // silence, 2 seconds on
    }
}

TEST(Fader, ResetEndsAGlide)
{
    OutputRig rig;
    rig.set(OutputRig::Gain, 1.0);
    rig.run(rig.constant(0.01, 1.0));
    rig.module.reset();
    const std::vector<double> y = rig.run(rig.constant(0.01, 1.0));
    EXPECT_EQ(y.front(), y.back());
    EXPECT_NEAR(y.front(), std::pow(10.0, 0.5), 1e-12);
}

TEST(Fader, WritesMonoToBothChannelsInAnySplit)
{
    const auto render = [](std::size_t piece) {
        OutputRig rig;
        rig.set(OutputRig::Gain, 0.4);
        const std::vector<double> x = rig.sine(0.1, 0.8);
        const Rendered out = rig.run(x, std::vector<double>(x.size(), 9.0), Form::Mono, piece);
        EXPECT_EQ(out.left, out.right);
        std::vector<double> all = out.left;
        for (std::uint32_t meter = 0; meter < 8; ++meter) all.push_back(rig.read(meter));
        return all;
    };
    const std::vector<double> whole = render(64);
    for (std::size_t piece : {1U, 7U, 32U}) {
        std::vector<double> split = render(piece);
        // Readings hold the value at the head of the last block, so only the falling ones may differ.
        EXPECT_TRUE(std::equal(split.begin(), split.end() - 8, whole.begin())) << piece;
        for (std::size_t i = whole.size() - 8; i < whole.size(); ++i) EXPECT_NEAR(split[i], whole[i], 2e-3);
    }
}

TEST(Fader, PassesThroughWhenOffOrNotRunning)
{
    for (bool typeOff : {true, false}) {
        OutputRig rig;
        rig.set(OutputRig::Gain, 0.3);
        rig.module.reset();
        if (typeOff)
            rig.set(OutputRig::Type, 0.0);
        else
            rig.module.deactivate();
        const std::vector<double> x = rig.sine(0.2, 0.5);
        const std::vector<double> other(x.size(), 0.25);
        const Rendered out = rig.run(x, other, Form::Mono);
        EXPECT_EQ(out.left, x);
        EXPECT_EQ(out.right, other);
        EXPECT_GT(rig.read(OutputRig::InLevel), 0.3);
        EXPECT_EQ(rig.read(OutputRig::InLevel), rig.read(OutputRig::OutLevel));
        EXPECT_EQ(rig.read(OutputRig::PeakL), 0.0);
        rig.set(OutputRig::Type, 7.0 / 15.0); // any Type but 0 runs
        rig.module.activate();
        EXPECT_LT(rig.run(x)[1], x[1]);
    }
}

TEST(Fader, DefaultsAreUnityAndPostFader)
{
    OutputRig rig;
    for (std::uint32_t offset = 16; offset < 20; ++offset) rig.set(offset, 0.0);
    rig.module.loadDefaults();
    rig.module.reset();
    const Rendered out = rig.run({0.5}, {-0.25}, Form::Stereo);
    EXPECT_NEAR(out.left[0], 0.5, 1e-6);
    EXPECT_NEAR(out.right[0], -0.25, 1e-6);
    rig.set(OutputRig::Gain, 0.0);
    rig.module.reset();
    rig.run(rig.constant(0.01, 0.5));
    EXPECT_EQ(rig.read(OutputRig::PeakL), 0.0); // measured behind the fader
}

TEST(StereoForm, WidthAndBalance)
{
    const auto mix = [](double width, double balance, double a, double b) {
        OutputRig rig;
        rig.set(OutputRig::Width, width);
        rig.set(OutputRig::Balance, balance);
        rig.set(OutputRig::Gain, 0.7511);
        rig.module.reset();
        const Rendered out = rig.run({a}, {b}, Form::Stereo);
        return std::array{out.left[0], out.right[0]};
    };
    const auto near = [](std::array<double, 2> got, double left, double right) {
        EXPECT_NEAR(got[0], left, 2e-6);
        EXPECT_NEAR(got[1], right, 2e-6);
    };
    near(mix(0.5, 0.5, 0.6, -0.2), 0.6, -0.2);
    near(mix(0.0, 0.5, 0.6, -0.2), 0.2, 0.2);  // mono
    near(mix(1.0, 0.5, 0.6, -0.2), 1.0, -0.6); // side doubled
    near(mix(0.5, 0.0, 0.5, 0.5), 0.5 * std::numbers::sqrt2, 0.0);
    EXPECT_EQ(mix(0.5, 0.0, 0.5, 0.5)[1], 0.0);
    EXPECT_EQ(mix(0.5, 1.0, 0.5, 0.5)[0], 0.0);
}

TEST(StereoForm, GlidesWidthSlowlyAndMetersEachChannel)
{
    OutputRig rig;
    rig.set(OutputRig::Width, 0.0);
    const std::size_t n = rig.samples(0.5);
    const Rendered out = rig.run(std::vector<double>(n, 1.0), std::vector<double>(n, 0.0), Form::Stereo);
    const double expected = 0.5 * std::pow(1.0 - 2.2049999442970147 / 44100.0, static_cast<double>(n));
    EXPECT_NEAR(out.left.back() - 0.5, expected, 1e-9);
    EXPECT_NEAR(out.right.back() - 0.5, -expected, 1e-9);
    EXPECT_GT(rig.read(OutputRig::PeakL), rig.read(OutputRig::PeakR));
    EXPECT_GT(rig.read(OutputRig::RmsL), rig.read(OutputRig::RmsR));
    EXPECT_EQ(rig.read(OutputRig::ClipR), 0.0);
}

TEST(Fader, StaysFiniteUnderWildAutomation)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    OutputRig rig(384000.0);
    double peak = 0.0;
    for (int block = 0; block < 4000; ++block) {
        rig.set(static_cast<std::uint32_t>(48.0 * unit(random)), unit(random));
        std::vector<double> x(64);
        for (double& v : x) v = 2e6 * unit(random) - 1e6;
        const Rendered out = rig.run(x, x, block % 5 == 0 ? Form::Stereo : Form::Mono);
        for (double v : out.left) peak = std::max(peak, std::fabs(v));
        for (std::uint32_t meter = 2; meter < 8; ++meter) {
            const double reading = rig.read(meter);
            ASSERT_TRUE(reading >= 0.0 && reading <= 1.0) << meter;
        }
        ASSERT_TRUE(std::isfinite(rig.read(0)) && std::isfinite(rig.read(1)));
    }
    std::printf("peak under automation with 1e6 at the input: %.3e\n", peak);
    EXPECT_LT(peak, 1e6 * 3.2 * 3.0);
}

} // namespace
} // namespace velmora::test
