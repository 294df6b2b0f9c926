#include "modules/limiter/saturator_curve.h"
#include "tests/modules/limiter/limiter_rig.h"

#include "dsp/run_widest.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <functional>
#include <string>

namespace velmora::test {
namespace {

using namespace limiter;

constexpr std::array kLevelsDb{-40.0, -20.0, -12.0, -6.0, -3.0, 0.0, 3.0, 6.0, 12.0, 20.0};

double softKnee(double t)
{
    return std::tanh(t) / t;
}

// Where the VCA's fast follower stands still between its fall to the floor and its attack, at the given
// settings of the controls in milliseconds; a constant level holds the slow one there too.
double vcaBalance(double logLevel, double floorLevel, double attack, double release, double sampleRate)
{
    const double b = 0.1091012;
    const double rise =
        (1.0 - std::pow(b, 0.01002286817603043)) * (3.2 / (0.7 * attack)) * (44100.0 / sampleRate);
    const double fall = 1.0 - std::pow(b, 1.0 / (2.8 * release * 1.4 * 0.001 * sampleRate));
    return ((1.0 - rise) * fall * floorLevel + logLevel * rise) / (1.0 - (1.0 - rise) * (1.0 - fall));
}

struct Setting {
    std::int32_t type;
    double rate;
    std::function<void(LimiterRig&)> adjust;
};

// Each level finds a fresh limiter: the opto cell's way down from a louder one never quite ends.
void expectCurve(const std::string& name, const Setting& setting, double seconds,
                 const std::function<double(double)>& expected, double tolerance)
{
    std::printf("%-22s", name.c_str());
    for (double db : kLevelsDb) {
        LimiterRig rig(setting.type, setting.rate);
        setting.adjust(rig);
        const double level = fromDb(db);
        const double gain = rig.steadyGain(level, seconds);
        std::printf(" %+.0f:%+.2f", db, toDb(gain * level));
        EXPECT_NEAR(gain / expected(level), 1.0, tolerance) << name << " at " << db << " dB";
    }
    std::printf("\n");
}

TEST(LimiterCurves, OptoFollowsTheCellsLevel)
{
    for (double rate : {44100.0, 192000.0}) {
        const auto adjust = [](bool soft) {
            return [soft](LimiterRig& rig) {
                rig.set(kAttackOffset, 0.2);
                rig.setSoft(soft);
            };
        };
        expectCurve(
            "Opto hard", {kOpto, rate, adjust(false)}, 0.5,
            [](double u) { return std::min(1.0, 1.0 / (0.93 * u + 0.05 + 1e-6)); }, 1e-9);
        expectCurve(
            "Opto soft", {kOpto, rate, adjust(true)}, 0.5,
            [](double u) { return softKnee(0.93 * u + 0.01 + 1e-6); }, 1e-9);
    }
}

TEST(LimiterCurves, VcaHoldsTheLevelBetweenAttackAndFall)
{
    for (double rate : {44100.0, 96000.0}) {
        const double attack = std::sqrt(0.1 * 100.0);
        const auto level = [&](double u, double floorLevel) {
            const double a = std::log10(u + 0.0001);
            return std::pow(10.0, std::max(floorLevel, vcaBalance(a, floorLevel, attack, 100.0, rate)));
        };
        expectCurve(
            "VCA hard", {kVca, rate, [](LimiterRig&) {}}, 2.0,
            [&](double u) { return std::min(1.0, 1.0 / (level(u, -0.8) + 1e-6)); }, 1e-6);
        expectCurve(
            "VCA soft", {kVca, rate, [](LimiterRig& rig) { rig.setSoft(true); }}, 2.0,
            [&](double u) { return softKnee(level(u, -1.3)); }, 1e-6);
    }
    EXPECT_NEAR(toDb(LimiterRig(kVca).steadyGain(fromDb(6.0), 2.0)), -6.0, 0.1);
}

TEST(LimiterCurves, BrickWallInEveryMode)
{
    for (int mode : {0, 1, 2}) {
        const double rest = mode == 0 ? 0.0 : 0.1; // where the peak relaxes to
        const auto level = [rest](double u) { return std::max(rest, u + 0.01) + 1e-6; };
        const auto adjust = [mode](bool soft) {
            return [mode, soft](LimiterRig& rig) {
                rig.setMode(mode);
                rig.setSoft(soft);
                rig.set(kReleaseOffset, 0.0);
            };
        };
        const std::string name = "BrickWall " + std::to_string(mode + 1);
        expectCurve(
            name + " hard", {kBrickWall, 44100.0, adjust(false)}, 0.5,
            [&](double u) { return std::min(1.0, 1.0 / level(u)); }, 1e-9);
        expectCurve(
            name + " soft", {kBrickWall, 44100.0, adjust(true)}, 0.5,
            [&](double u) {
                const double t = 1.255 * level(u);
                return std::sqrt(std::atan(t * t)) / t;
            },
            1e-9);
    }
}

TEST(LimiterCurves, SaturatorShapesMatchTheirFormulas)
{
    const std::array<std::function<double(double)>, 6> output{
        [](double t) { return t / (0.33 * std::sqrt(t) + 1.0); },
        [](double t) { return t / (0.33 * t + 1.0); },
        [](double t) { return std::atan(t); },
        [](double t) { return std::tanh(t); },
        [](double t) { return std::sqrt(std::tanh(t * t)); },
        [](double t) { return std::pow(std::tanh(std::pow(t, 4.0)), 0.25); },
    };
    for (std::size_t shape = 0; shape < output.size(); ++shape) {
        for (bool soft : {false, true}) {
            const auto adjust = [shape, soft](LimiterRig& rig) {
                rig.setShape(static_cast<int>(shape));
                rig.setSoft(soft);
            };
            const std::string name = "Saturator " + std::to_string(shape + 1) + (soft ? " soft" : " hard");
            // The shelves ring out at 3.85 Hz; after a second what is left is below the tolerance.
            expectCurve(
                name, {kSaturator, 44100.0, adjust}, 1.0, [&](double u) { return output[shape](u) / u; },
                1e-6);
        }
    }
}

// The post-emphasis raises a difference in the last bit of a gain to almost 1e-9 of the peak at 384 kHz, so
// the curves are held to the bit, and not to a tolerance.
TEST(LimiterCurves, SaturatorGainsAreExact)
{
    const std::array<std::function<double(double)>, 6> gain{
        [](double t) { return 1.0 / (0.33 * std::sqrt(t) + 1.0); },
        [](double t) { return 1.0 / (0.33 * t + 1.0); },
        [](double t) { return std::atan(t) / t; },
        [](double t) { return std::tanh(t) / t; },
        [](double t) { return std::sqrt(std::tanh(t * t)) / t; },
        [](double t) { return std::pow(std::tanh(t * t * t * t), 0.25) / t; },
    };
    constexpr std::size_t kLevels = 1024 * kChunk;
    for (std::size_t shape = 0; shape < gain.size(); ++shape) {
        std::array<double, kLevels> gains{};
        for (std::size_t i = 0; i < gains.size(); ++i) gains[i] = 4e-5 * (static_cast<double>(i) + 1.0);
        const auto levels = gains;
        const auto curve = static_cast<SaturatorShape>(shape);
        for (std::size_t from = 0; from < kLevels; from += kChunk) {
            runWidest([&](auto width) VELMORA_KERNEL_LAMBDA {
                saturatorGains<Lanes<width>>(curve, gains.data() + from, kChunk);
            });
        }
        int different = 0;
        for (std::size_t i = 0; i < gains.size(); ++i) different += gains[i] != gain[shape](levels[i]);
        EXPECT_EQ(different, 0) << "shape " << shape;
    }
}

TEST(LimiterCurves, CeilingShiftsTheCurveAndOutputTheLevel)
{
    // Level and ceiling moved together give the same gain, so the output moves by the same step.
    for (const Variant& variant : kVariants) {
        LimiterRig reference(variant.type);
        LimiterRig shifted(variant.type);
        shifted.setCeilingDb(-12.0);
        shifted.setOutputDb(7.5);
        shifted.module.reset();
        const double gain = reference.steadyGain(fromDb(6.0), 2.0);
        const double moved = shifted.steadyGain(fromDb(-6.0), 2.0) / fromDb(7.5);
        std::printf("%-10s gain at +6 dB above a ceiling of 0 and -12 dB: %+.4f %+.4f dB\n", variant.name,
                    toDb(gain), toDb(moved));
        EXPECT_NEAR(toDb(gain), toDb(moved), 1e-7);
    }
}

TEST(LimiterCurves, BrickWallNeverPassesItsCeilingWithoutLookAhead)
{
    for (int mode : {0, 1, 2}) {
        LimiterRig rig(kBrickWall);
        rig.setMode(mode);
        rig.setCeilingDb(-6.0);
        rig.module.reset();
        rig.run(constant(0.0, 4410));
        const double first = rig.run(constant(1.0, 1)).front();
        const double loud = peak(rig.run(noise(4.0, 44100)));
        std::printf("mode %d: first sample %.6f, peak of noise %.6f of the ceiling\n", mode + 1,
                    first / fromDb(-6.0), loud / fromDb(-6.0));
        EXPECT_LT(first, fromDb(-6.0));
        EXPECT_GT(first, 0.98 * fromDb(-6.0));
        EXPECT_LT(loud, fromDb(-6.0));
    }
}

TEST(LimiterCurves, SquareLawKeepsTheBrickWallOnTheWavesPeaks)
{
    LimiterRig rig(kBrickWall);
    const Signal in = sine(4.0, 200.0, 44100.0, 44100);
    const Signal out = rig.run(in);
    double lowest = 1.0;
    double highest = 0.0;
    for (std::size_t i = 22050; i < in.size(); ++i) {
        if (std::fabs(in[i]) < 0.1) continue;
        lowest = std::min(lowest, out[i] / in[i]);
        highest = std::max(highest, out[i] / in[i]);
    }
    std::printf("gain over a 200 Hz period: %.3f..%.3f dB\n", toDb(lowest), toDb(highest));
    EXPECT_LT(toDb(highest / lowest), 0.5);
}

} // namespace
} // namespace velmora::test
