#include "tests/modules/compressor/compressor_rig.h"

#include <gtest/gtest.h>

namespace velmora::test {
namespace {

using Rig = CompressorRig;

// Plays a key to a quiet probe signal and gives the gain sample by sample.
Signal gainUnder(Rig& rig, const Signal& key)
{
    const double probe = 1e-3;
    rig.set(Rig::SideChain, 1.0);
    Signal gain = rig.run(Signal(key.size(), probe), key);
    for (double& g : gain) g /= probe;
    return gain;
}

// Milliseconds until `share` of the way between two gains is made, on the scale that `bend` gives the gain.
template <typename Bend>
double timeTo(double share, const Signal& gain, double from, double to, double rate, Bend bend)
{
    for (std::size_t i = 0; i < gain.size(); ++i)
        if (std::fabs(bend(gain[i]) - bend(from)) >= share * std::fabs(bend(to) - bend(from)))
            return 1000.0 * static_cast<double>(i + 1) / rate;
    return -1.0;
}

constexpr double kOneTimeConstant = 1.0 - 1.0 / std::numbers::e;

template <typename Bend>
double attackTime(Rig& rig, double rate, double level, Bend bend)
{
    const double from = rig.gain();
    const Signal gain = gainUnder(rig, rig.alternating(1.0, level));
    return timeTo(kOneTimeConstant, gain, from, gain.back(), rate, bend);
}
template <typename Bend>
double releaseTime(Rig& rig, double rate, Bend bend)
{
    const double from = rig.gain();
    return timeTo(kOneTimeConstant, gainUnder(rig, rig.silence(1.0)), from, 1.0, rate, bend);
}

// The level of the FET's envelope behind a gain.
double fetEnvelope(double gain)
{
    const double t2 = 1.0 / (100.0 * gain / (1.1 - gain) - 1.0) - 0.001;
    return t2 / (0.999 - t2);
}

constexpr double kRatio = 0.7;

// The power in the opto's cell behind a gain.
double cellPower(double gain)
{
    return std::pow(gain, -2.0 / optoTarget(kRatio)) - 1.0;
}

void prepare(Rig& rig, double attack, double release)
{
    rig.set(Rig::Threshold, 0.4);
    rig.set(Rig::Ratio, kRatio);
    rig.set(Rig::Attack, attack);
    rig.set(Rig::Release, release);
    rig.module.reset();
}

TEST(Timing, VcaAttackAndReleaseAtEveryRate)
{
    for (double rate : kRates)
        for (double attack : {0.3, 1.0}) {
            Rig rig(Vca, rate);
            prepare(rig, attack, 0.3);
            const double a = std::pow(attack, 0.5849625);
            const double rise = attackTime(rig, rate, 0.5, toDb);
            const double fall = releaseTime(rig, rate, toDb);
            const double riseTime = std::pow(1000.0, a) * 0.33 / (2.0 * std::numbers::pi);
            const double fallTime = std::pow(100.0, a * 0.1 + 0.3) * 80.0 / (2.0 * std::numbers::pi);
            std::printf("VCA %6.0f Hz attack %.1f: up in %.3f ms, down in %.2f ms\n", rate, attack, rise,
                        fall);
            EXPECT_NEAR(rise, riseTime, 0.005 * riseTime + 2000.0 / rate);
            EXPECT_NEAR(fall, fallTime, 0.005 * fallTime + 2000.0 / rate);
        }
}

TEST(Timing, FetReleaseIsExponentialAndAttackFollowsItsKnob)
{
    for (double rate : kRates) {
        double last = 0.0;
        for (double attack : {0.0, 0.5, 1.0}) {
            Rig rig(Fet, rate);
            prepare(rig, attack, 0.3);
            rig.run(rig.silence(1.0)); // the ratio glides after a reset
            const double rise = attackTime(rig, rate, 0.5, fetEnvelope);
            const double fall = releaseTime(rig, rate, fetEnvelope);
            const double bent = std::pow(attack, 0.5849625);
            const double fallTime = std::pow(100.0, bent * 0.2 + 0.3) * 40.0 / (2.0 * std::numbers::pi);
            std::printf("FET %6.0f Hz attack %.1f: up in %.3f ms, down in %.2f ms\n", rate, attack, rise,
                        fall);
            EXPECT_NEAR(fall, fallTime, 0.005 * fallTime + 2000.0 / rate);
            EXPECT_GT(rise, last);
            last = 2.0 * rise;
        }
    }
}

TEST(Timing, OptoReleaseSlowsDownAlongTheWay)
{
    double last = 0.0;
    for (double release : {0.0, 0.5, 1.0}) {
        double atFirstRate = 0.0;
        for (double rate : kRates) {
            Rig rig(Opto, rate);
            prepare(rig, 0.3, release);
            const double rise = attackTime(rig, rate, 0.2, toDb);
            const double from = rig.gain();
            const Signal gain = gainUnder(rig, rig.silence(0.05 * std::pow(100.0, release)));
            std::array<double, 4> t{}; // power down to 1/2, 1/4, 1/8
            for (std::size_t i = 1; i < t.size(); ++i)
                t[i] = timeTo(1.0 - std::pow(0.5, static_cast<double>(i)), gain, from, 1.0, rate, cellPower);
            const double half = t[1];
            std::printf("opto %6.0f Hz release %.1f: up in %.3f ms, halves in %.2f, %.2f, %.2f ms\n", rate,
                        release, rise, half, t[2] - t[1], t[3] - t[2]);
            // An exponential would halve in equal times. The first half also waits for the first envelope.
            EXPECT_GT(t[2] - t[1], 1.05 * half);
            EXPECT_GT(t[3] - t[2], 1.3 * (t[2] - t[1]));
            if (atFirstRate == 0.0) atFirstRate = half;
            EXPECT_NEAR(half, atFirstRate, 0.01 * atFirstRate);
            EXPECT_GT(half, last);
        }
        last = 5.0 * atFirstRate;
    }
}

} // namespace
} // namespace velmora::test
