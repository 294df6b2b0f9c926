#include "tests/modules/expander/expander_rig.h"
#include "tests/support/gap.h"

#include <gtest/gtest.h>

#include <cstdio>

namespace velmora::test {
namespace {

using Rig = ExpanderRig;

constexpr std::array kRates{44100.0, 96000.0, 384000.0};
constexpr double kResidue = 0.07637084; // left over after an attack or release time
constexpr double kOpen = 0.5;           // key levels well off the threshold
constexpr double kShut = 0.01;

std::vector<double> join(std::size_t first, double a, std::size_t second, double b)
{
    Signal x(first, a);
    x.resize(first + second, b);
    return x;
}

TEST(ExpanderCurve, FallsWithTheLevelByTheRatio)
{
    constexpr std::array kExponents{0.0, 0.1, 0.23, 0.35, 0.5, 0.7, 1.0, 1.5, 2.2, 4.0, 9.0};
    std::printf("expander, threshold -20 dB: gain in dB at a key of -10, -30, -40 dB\n");
    for (int ratio = 0; ratio <= 10; ++ratio) {
        Rig rig(Rig::Expander);
        rig.set(Rig::Ratio, ratio / 10.0);
        rig.set(Rig::Release, 0.0);
        std::array<double, 3> gain{};
        for (std::size_t i = 0; i < 3; ++i)
            gain[i] = rig.steadyGain(std::array{0.31622776601683794, 0.031622776601683794, 0.01}[i]);
        const double e = kExponents[static_cast<std::size_t>(ratio)];
        std::printf("  index %2d: %.3f  %.3f  %.3f\n", ratio, toDb(gain[0]), toDb(gain[1]), toDb(gain[2]));
        EXPECT_NEAR(gain[0], 1.0, 1e-6);
        EXPECT_NEAR(gain[1], std::pow(10.0, -0.5 * e), 1e-6);
        EXPECT_NEAR(gain[2], std::pow(10.0, -e), 1e-6);
    }
}

TEST(GateAndDuckerCurve, SwitchAtTheThresholdBetweenFloorAndOne)
{
    for (double range : {0.0, 0.3, 1.0}) {
        const double floor = range * range;
        for (bool loud : {true, false}) {
            Rig gate(Rig::Gate), ducker(Rig::Ducker);
            for (Rig* rig : {&gate, &ducker}) {
                rig->set(Rig::Range, range);
                rig->set(Rig::Release, 0.0);
            }
            const double level = Rig::kThreshold * (loud ? 1.0 + 1e-9 : 1.0 - 1e-9);
            const double gateGain = gate.steadyGain(level), duckerGain = ducker.steadyGain(level);
            std::printf("range %.1f, key %s: gate %.6f, ducker %.6f\n", range, loud ? "above" : "below",
                        gateGain, duckerGain);
            EXPECT_NEAR(gateGain, loud ? 1.0 : floor, 1e-12);
            EXPECT_NEAR(duckerGain, loud ? floor : 1.0, 1e-12);
            EXPECT_NEAR(gate.meter(Rig::kReduction), 1.0 - gateGain, 1e-12);
            if (range == 0.0 && !loud) {
                EXPECT_EQ(gateGain, 0.0); // true silence
            }
        }
    }
}

TEST(Threshold, RunsFromMinus60DecibelsToFullScale)
{
    for (double value : {0.0, 0.25, 1.0}) {
        Rig rig(Rig::Gate);
        rig.set(Rig::Threshold, value);
        rig.set(Rig::Attack, 0.0);
        const double threshold = std::pow(10.0, (60.0 * value - 60.0) / 20.0);
        EXPECT_EQ(rig.steadyGain(threshold * 0.999999, 0.1), 0.0);
        EXPECT_GT(rig.steadyGain(threshold * 1.000001, 0.1), 0.99);
    }
}

TEST(Timing, AttackLeavesItsResidueAfterItsTime)
{
    for (double rate : kRates)
        for (double value : {0.0, 0.5, 1.0}) {
            const double ms = std::clamp(0.1 * std::pow(2500.0, value), 0.1, 250.0);
            const auto measure = [&](int type) {
                Rig rig(type, rate);
                rig.set(Rig::Attack, value);
                if (type == Rig::Ducker) rig.steadyGain(kShut, 3.0);
                const Signal g = rig.gains(Signal(rig.samples(0.6), kOpen));
                const double n = ms * 0.001 * rate;
                const std::size_t samples =
                    type == Rig::Ducker ? firstBelow(g, kResidue) : firstAbove(g, 1.0 - kResidue);
                // The expander's smoothing comes on top of its attack.
                if (type != Rig::Expander) {
                    EXPECT_NEAR(static_cast<double>(samples + 1), n, 1.0);
                }
                return 1000.0 * static_cast<double>(samples + 1) / rate;
            };
            const double gate = measure(Rig::Gate), ducker = measure(Rig::Ducker);
            std::printf("attack %.2f ms at %.0f Hz: gate %.3f ms, ducker %.3f ms, expander %.3f ms\n", ms,
                        rate, gate, ducker, measure(Rig::Expander));
        }
}

TEST(Timing, HoldLastsExactlyItsSamples)
{
    for (double rate : kRates)
        for (double value : {0.0, 0.01, 0.3547, 1.0}) {
            const auto hold = static_cast<std::size_t>(value * value * 0.4 * rate);
            for (int type : {Rig::Gate, Rig::Ducker}) {
                Rig rig(type, rate);
                rig.set(Rig::Hold, value);
                rig.set(Rig::Attack, 0.0);
                const std::size_t open = rig.samples(0.05);
                const Signal g = rig.gains(join(open, kOpen, hold + 10, kShut));
                std::size_t held = 0;
                while (open + held < g.size() && g[open + held] == g[open - 1]) ++held;
                EXPECT_EQ(held, hold) << "type " << type << ", rate " << rate;
            }
            std::printf("hold %.3f ms at %.0f Hz: %zu samples\n", value * value * 400.0, rate, hold);
        }
}

// A reset shuts the gain but doesn't shorten a hold under way: the ducker waits for the rest of it.
TEST(Timing, HoldGoesOnAcrossAReset)
{
    Rig rig(Rig::Ducker);
    rig.set(Rig::Hold, 0.3547);
    const auto hold = static_cast<std::size_t>(0.3547 * 0.3547 * 0.4 * 44100.0);
    const std::size_t before = 500;
    rig.gains(join(1000, kOpen, before, kShut));
    rig.module.reset();
    EXPECT_EQ(firstAbove(rig.gains(Signal(hold, kShut)), 1e-12), hold - before);
}

// A fall of d^p per sample takes (1 - L^(1 - p)) / (1 - p) time constants from 1 down to L. The constant is
// the shown time stretched by the shape's correction.
TEST(Timing, ReleaseFollowsItsShape)
{
    constexpr std::array kCorrections{1.0, 1.35, 2.31, 3.26, 3.76};
    const double ms = 10.0 * std::pow(300.0, 0.5);
    for (double rate : {44100.0, 192000.0})
        for (int step = 0; step < 5; ++step) {
            const double shape = step / 4.0;
            const auto fall = [&](int type) {
                Rig rig(type, rate);
                rig.set(Rig::Release, 0.5);
                rig.set(Rig::Shape, shape);
                rig.set(Rig::Attack, 0.0);
                const std::size_t open = rig.samples(0.05);
                Signal g = rig.gains(join(open, kOpen, rig.samples(0.8), 0.0));
                g.erase(g.begin(), g.begin() + static_cast<std::ptrdiff_t>(open));
                if (type == Rig::Ducker)
                    for (double& v : g) v = 1.0 - v;
                return g;
            };
            const Signal gate = fall(Rig::Gate);
            const double power = std::pow(0.0625, shape * shape);
            const auto expectedMs = [&](double level) {
                const double constants =
                    step == 0 ? -std::log(level) : (1.0 - std::pow(level, 1.0 - power)) / (1.0 - power);
                return kCorrections[static_cast<std::size_t>(step)] * ms * constants / -std::log(kResidue);
            };
            const auto measuredMs = [&](double level) {
                return 1000.0 * static_cast<double>(firstBelow(gate, level)) / rate;
            };
            std::printf("release %.1f ms, shape %.2f at %.0f Hz: half at %.1f ms, residue at %.1f ms\n", ms,
                        shape, rate, measuredMs(0.5), measuredMs(kResidue));
            for (double level : {0.9, 0.5, kResidue, 0.01})
                EXPECT_NEAR(measuredMs(level), expectedMs(level), 0.05) << shape << ", " << level;
            EXPECT_LT(largestDifference(gate, fall(Rig::Ducker)), 1e-9);
        }
}

// From one level to a lower one the expander falls by its release; an exponential one ends at its target.
TEST(Timing, ExpanderReleaseStopsAtItsTarget)
{
    Rig rig(Rig::Expander);
    rig.set(Rig::Ratio, 0.6); // gain follows the level one to one
    rig.set(Rig::Release, 0.3);
    const double ms = 10.0 * std::pow(300.0, 0.3);
    const std::size_t open = rig.samples(0.3);
    const Signal g = rig.gains(join(open, kOpen, rig.samples(1.0), 0.05));
    EXPECT_NEAR(g[open - 1], 1.0, 1e-9);
    EXPECT_NEAR(g.back(), 0.5, 1e-6);
    EXPECT_GE(*std::min_element(g.begin() + static_cast<std::ptrdiff_t>(open), g.end()), 0.5 - 1e-12);
    const Signal fall(g.begin() + static_cast<std::ptrdiff_t>(open), g.end());
    const double measured = 1000.0 * static_cast<double>(firstBelow(fall, 0.5 + 0.5 * kResidue)) / 44100.0;
    std::printf("expander release %.1f ms: %.1f ms with its smoothing\n", ms, measured);
    EXPECT_GT(measured, ms);
    EXPECT_LT(measured, ms + 10.0);
}

// The expander's gain moves in two stages: an envelope that heads for 1 and stops at its target, and a
// one-pole behind it that on the way up takes the attack's step as well. Both ways have a closed form at
// Shape 0.
TEST(Timing, ExpanderMovesInTwoStages)
{
    constexpr double kTarget = 0.5;
    for (double rate : kRates) {
        Rig rig(Rig::Expander, rate);
        rig.set(Rig::Ratio, 0.6); // gain follows the level one to one
        rig.set(Rig::Attack, 0.6);
        rig.set(Rig::Release, 0.3);
        const double rise = std::pow(kResidue, 1000.0 / (0.1 * std::pow(2500.0, 0.6) * rate));
        const double fall = std::pow(kResidue, 1000.0 / (10.0 * std::pow(300.0, 0.3) * rate));
        const double lag = std::pow(0.05, 100.0 / rate);
        double worst = 0.0;

        const Signal up = rig.gains(Signal(rig.samples(0.1), kTarget * Rig::kThreshold));
        const double both = rise * lag;
        const auto gap = [&](double n) { // from the smoothed gain to 1 while the envelope rises
            return std::pow(both, n) +
                   (1.0 - both) * rise * (std::pow(rise, n) - std::pow(both, n)) / (rise - both);
        };
        const double arrival = std::floor(std::log(1.0 - kTarget) / std::log(rise)); // last sample below
        for (std::size_t i = 0; i < up.size(); ++i) {
            const double n = static_cast<double>(i + 1);
            const double left = gap(arrival) - (1.0 - kTarget);
            const double expected =
                n <= arrival ? 1.0 - gap(n) : kTarget - left * std::pow(both, n - arrival);
            worst = std::max(worst, gapBetween(up[i], expected));
        }

        rig.steadyGain(kOpen, 3.0);
        const Signal down = rig.gains(Signal(rig.samples(0.1), kTarget * Rig::kThreshold));
        for (std::size_t i = 0; i < down.size(); ++i) {
            const double n = static_cast<double>(i + 1);
            const double lagged = std::pow(lag, n);
            const double left = lagged + (1.0 - lag) * fall * (std::pow(fall, n) - lagged) / (fall - lag);
            worst = std::max(worst, gapBetween(down[i], kTarget + (1.0 - kTarget) * left));
        }
        std::printf("expander at %.0f Hz: %.1e from its closed form\n", rate, worst);
        EXPECT_LT(worst, 1e-10);
    }
}

// A nearly straight fall doesn't slow down at its target: it steps past it once and is fetched back. The
// envelope is read off the gain by undoing the one-pole behind it.
TEST(Timing, ExpanderStraightFallStepsPastItsTargetOnce)
{
    constexpr double kTarget = 0.5, kRate = 44100.0;
    Rig rig(Rig::Expander, kRate);
    rig.set(Rig::Ratio, 0.6);
    rig.set(Rig::Release, 0.0);
    rig.set(Rig::Shape, 1.0);
    rig.steadyGain(kOpen, 3.0);
    const Signal g = rig.gains(Signal(rig.samples(0.1), kTarget * Rig::kThreshold));
    const double lag = std::pow(0.05, 100.0 / kRate);
    const auto envelope = [&](std::size_t i) {
        return (g[i] - lag * (i == 0 ? 1.0 : g[i - 1])) / (1.0 - lag);
    };
    const double coefficient = 1.0 - std::pow(kResidue, 1.0 / (3.76 * 0.01 * kRate));
    double expected = 1.0;
    std::size_t i = 0;
    for (; expected > kTarget; ++i) {
        ASSERT_LT(i + 1, g.size());
        expected -= std::pow(expected - kTarget, 0.0625) * coefficient;
        ASSERT_NEAR(envelope(i), expected, 1e-9) << i;
    }
    EXPECT_LT(expected, kTarget - 1e-6);
    EXPECT_NEAR(envelope(i), kTarget, 1e-9);
}

TEST(ExpanderRule, BlockOfTargetsIsThePowerOfTheLevels)
{
    double worst = 0.0;
    for (double exponent : kExpanderExponents) {
        const ExpanderRule rule{{}, exponent};
        std::vector<double> levels;
        for (double level = 1e-8; level < 4.0; level *= 1.37) levels.push_back(level);
        levels.insert(levels.end(), {0.0, 1.0, 1e-320, INFINITY});
        std::vector<double> targets = levels;
        rule.prepare(targets.data(), targets.size());
        for (std::size_t i = 0; i < levels.size(); ++i) {
            const double law = levels[i] < 1.0 && exponent != 0.0 ? std::pow(levels[i], exponent) : 1.0;
            worst = std::max(worst, gapBetween(targets[i], law));
        }
    }
    std::printf("targets off by %.1e\n", worst);
    EXPECT_LT(worst, 1e-15);
}

} // namespace
} // namespace velmora::test
