#include "params/catalogue.h"
#include "tests/modules/eq/eq_rig.h"
#include "tests/support/gap.h"

#include <gtest/gtest.h>

#include <cstdio>

namespace velmora::test {
namespace {

double peak(const Signal& s, std::size_t from = 0)
{
    double top = 0.0;
    for (std::size_t n = from; n < s.size(); ++n) top = std::max(top, std::fabs(s[n]));
    return top;
}

void setBusy(EqRig& rig)
{
    rig.setBand(EqBand::High, 1.0, 0.8, 0.6, 1.0);
    rig.setBand(EqBand::HighMid, 1.0, 0.3, 0.4, 0.5);
    rig.setBand(EqBand::LowMid, 1.0, 0.75, 0.6, 0.0);
    rig.setBand(EqBand::Low, 1.0, 0.2, 0.5, 0.5);
    rig.set(Out, 0.6);
    rig.set(Analog, 1.0);
}

// Where a third module's band stands between dry and wet is the crossfade itself.
TEST(EqModule, InFadesWithTheSmoothingTimeAtEveryRate)
{
    for (EqFlavour flavour : {EqFlavour::Sorrel, EqFlavour::Juniper}) {
        for (double rate : {44100.0, 192000.0}) {
            EqRig wet(flavour, rate), fading(flavour, rate);
            for (EqRig* rig : {&wet, &fading}) {
                rig->set(EqBand::Low, Gain, 0.9);
                rig->module.reset();
                rig->set(EqBand::Low, In, rig == &wet ? 1.0 : 0.0);
            }
            const Signal before = sine(60.0, rate, 1.0, 0.1);
            wet.run(before);
            EXPECT_LT(std::fabs(fading.run(before).back() - before.back()), 1e-12);
            fading.set(EqBand::Low, In, 1.0);
            const Signal x(static_cast<std::size_t>(rate * 0.005), 0.7);
            const Signal full = wet.run(x), part = fading.run(x);
            double worst = 0.0;
            for (std::size_t n = 0; n < x.size(); ++n) {
                const double seconds = static_cast<double>(n + 1) / rate;
                const double mix = 1.0 - std::pow(0.1091012, 320.0 * seconds);
                worst = std::max(worst, gapBetween((part[n] - x[n]) / (full[n] - x[n]), mix));
            }
            std::printf("%s at %.0f Hz: crossfade off by %.1e\n", name(flavour), rate, worst);
            EXPECT_LT(worst, 1e-9);
        }
    }
}

TEST(EqModule, OutMovesInWholeDecibels)
{
    for (EqFlavour flavour : kFlavours) {
        EqRig rig(flavour);
        setBusy(rig);
        rig.setAllIn(0.0);
        rig.set(Analog, 0.0);
        for (int step : {-18, -7, 0, 1, 18}) {
            for (double inside : {-0.4, 0.0, 0.4}) {
                rig.set(Out, (step + 18 + inside) / 36.0);
                rig.run(Signal(9600, 0.25));
                EXPECT_NEAR(rig.run(Signal(1, 0.25))[0], 0.25 * std::pow(10.0, step / 20.0), 1e-12);
            }
        }
    }
}

// A click would show as a kink: the second difference stays that of the tone itself, boosted by up to 1.8 dB.
TEST(EqModule, GainThroughZeroChangesTheKindWithoutAClick)
{
    constexpr double kRate = 48000.0;
    const Signal tone = sine(200.0, kRate, 0.5, 0.2);
    const double kink = 0.5 * std::pow(2.0 * std::numbers::pi * 200.0 / kRate, 2.0);
    for (EqBand band : {EqBand::High, EqBand::Low}) {
        EqRig rig(EqFlavour::Tamarin, kRate);
        rig.set(band, Gain, 0.55);
        rig.run(tone);
        double worst = 0.0;
        Signal last = rig.run(tone);
        for (double gain : {0.45, 0.55, 0.5, 0.45, 0.5}) {
            rig.set(band, Gain, gain);
            Signal y = rig.run(tone);
            y.insert(y.begin(), last.end() - 2, last.end());
            for (std::size_t n = 2; n < y.size(); ++n)
                worst = std::max(worst, std::fabs(y[n] - 2.0 * y[n - 1] + y[n - 2]));
            last = y;
        }
        std::printf("%s: largest kink %.3f of the tone's own\n", kBandNames[index(band)], worst / kink);
        EXPECT_LT(worst, 1.3 * kink);
    }
}

TEST(EqModule, SilenceStaysSilent)
{
    for (EqFlavour flavour : kFlavours) {
        EqRig rig(flavour);
        setBusy(rig);
        EXPECT_EQ(peak(rig.run(Signal(4800))), 0.0);
        EXPECT_EQ(rig.meter(0), 0.0);
        EXPECT_EQ(rig.meter(1), 0.0);
    }
}

TEST(EqModule, ResetForgetsEverything)
{
    for (EqFlavour flavour : kFlavours) {
        EqRig fresh(flavour), used(flavour);
        used.setBand(EqBand::High, 0.0, 0.9, 0.1, 1.0);
        used.set(Out, 1.0);
        used.set(Analog, 1.0);
        used.run(noise(5000, 5.0));
        for (EqRig* rig : {&fresh, &used}) {
            rig->neutral();
            setBusy(*rig);
            rig->module.reset();
        }
        EXPECT_EQ(used.meter(0), 0.0);
        EXPECT_EQ(used.meter(1), 0.0);
        const Signal x = noise(5000, 1.0, 7);
        EXPECT_EQ(fresh.run(x), used.run(x));
    }
}

TEST(EqModule, PiecesDontMatter)
{
    const Signal x = noise(64 * 200, 1.0);
    for (EqFlavour flavour : kFlavours) {
        EqRig whole(flavour), split(flavour);
        setBusy(whole);
        setBusy(split);
        EXPECT_EQ(whole.run(x), split.run(x, {64, 1, 63, 17, 5, 42}));
    }
}

TEST(EqModule, RandomAutomationStaysFinite)
{
    std::minstd_rand engine(5);
    std::uniform_real_distribution<double> value(0.0, 1.0);
    std::uniform_int_distribution<std::uint32_t> offset(16, 33);
    for (double level : {1.0, 1e6}) {
        EqRig rig(EqFlavour::Sorrel);
        const Signal x = noise(64, level);
        double top = 0.0;
        for (int block = 0; block < 12000; ++block) {
            for (int i = 0; i < 3; ++i) rig.set(offset(engine), value(engine));
            if (block % 50 == 0) rig.setFlavour(kFlavours[engine() % 3]);
            for (double y : rig.run(x)) {
                ASSERT_TRUE(std::isfinite(y));
                top = std::max(top, std::fabs(y));
            }
            ASSERT_TRUE(std::isfinite(rig.meter(0)) && std::isfinite(rig.meter(1)));
        }
        std::printf("input %g: output peak %.3g\n", level, top);
        EXPECT_LT(top, level * 1e5); // four bands and Out at full boost
    }
}

TEST(EqModule, RecoversFromTheLoudestInput)
{
    for (EqFlavour flavour : kFlavours) {
        EqRig struck(flavour), spared(flavour);
        setBusy(struck);
        setBusy(spared);
        struck.run(noise(4800, 1e6));
        spared.run(noise(4800, 1.0));
        const Signal x = noise(96000, 1.0, 3);
        const Signal a = struck.run(x), b = spared.run(x);
        double rest = 0.0;
        for (std::size_t n = 48000; n < x.size(); ++n) rest = std::max(rest, gapBetween(a[n], b[n]));
        std::printf("%s: %.1e left a second after 1e6\n", name(flavour), rest);
        EXPECT_LT(rest, 1e-9);
    }
}

TEST(EqModule, PassesThroughMeteredWithoutAFlavour)
{
    const Signal x = noise(4800, 0.5);
    for (int type : {0, 4, 15}) {
        EqRig rig(EqFlavour::Sorrel);
        setBusy(rig);
        rig.module.setParameter(EqRig::kBase, type / 15.0);
        EXPECT_EQ(rig.run(x), x);
        EXPECT_GT(rig.meter(0), 0.1);
        EXPECT_EQ(rig.meter(0), rig.meter(1));
        EXPECT_EQ(rig.meter(2), -1.0);
    }
    EqRig rig(EqFlavour::Tamarin);
    setBusy(rig);
    rig.module.deactivate();
    EXPECT_EQ(rig.run(x), x);
    rig.module.activate();
    EXPECT_NE(rig.run(x), x);
    EXPECT_GT(rig.meter(0), 0.1);
    EXPECT_NE(rig.meter(0), rig.meter(1));
    rig.module.resetMeters();
    EXPECT_EQ(rig.meter(0), 0.0);
}

TEST(EqModule, LoadsItsDefaults)
{
    EqRig changed(EqFlavour::Juniper), told(EqFlavour::Juniper);
    setBusy(changed);
    changed.module.loadDefaults();
    for (EqBand band : kAllEqBands) told.setBand(band, 1.0, 0.5, 0.5, isMidBand(band) ? 0.5 : 0.0);
    told.set(Analog, 1.0);
    for (EqRig* rig : {&changed, &told}) {
        rig->set(EqBand::Low, Gain, 0.7); // or the frequencies wouldn't show
        rig->set(EqBand::LowMid, Gain, 0.7);
        rig->set(EqBand::HighMid, Gain, 0.7);
        rig->set(EqBand::High, Gain, 0.7);
        rig->set(Analog, 1.0);
        rig->module.reset();
    }
    const Signal x = noise(4800, 1.0);
    EXPECT_EQ(changed.run(x), told.run(x));
}

} // namespace
} // namespace velmora::test
