#include "modules/eq/juniper_design.h"
#include "modules/eq/sorrel_design.h"
#include "modules/eq/tamarin_design.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

using K = StripBiquadKind;

struct Case {
    EqFlavour flavour;
    EqBand band;
    EqBandSettings settings;
    EqSectionSettings first;
    EqSectionSettings second;
    double gain;
};

// Worked out apart from this code, 13 digits.
const Case kCases[] = {
    {EqFlavour::Sorrel,
     EqBand::High,
     {1, 8000, 6, EqWidth::Wide},
     {K::HighShelf, 2640, 0.3846686296154, 6},
     {K::None, 0, 0, 0},
     0},
    {EqFlavour::Sorrel,
     EqBand::High,
     {1, 8000, -9, EqWidth::Narrow},
     {K::Peaking, 8000, 0.3656870541066, -10.08},
     {K::None, 0, 0, 0},
     0},
    {EqFlavour::Sorrel,
     EqBand::HighMid,
     {1, 2500, 12, EqWidth::Wide},
     {K::Peaking, 2500, 0.2655206346244, 12},
     {K::None, 0, 0, 0},
     0},
    {EqFlavour::Sorrel,
     EqBand::LowMid,
     {1, 500, -12, EqWidth::Narrow},
     {K::Peaking, 500, 0.5310412692488, -15},
     {K::None, 0, 0, 0},
     0},
    {EqFlavour::Sorrel,
     EqBand::Low,
     {1, 120, 9, EqWidth::Normal},
     {K::LowShelf, 360, 0.5450343070856, 9},
     {K::None, 0, 0, 0},
     0},
    {EqFlavour::Sorrel,
     EqBand::HighMid,
     {1, 2500, -6, EqWidth::Normal},
     {K::Peaking, 2500, 0.3456649903895, -6.75},
     {K::None, 0, 0, 0},
     0},
    {EqFlavour::Tamarin,
     EqBand::High,
     {1, 8000, 9, EqWidth::Normal},
     {K::Peaking, 8000, 0.503243281149, 12.15},
     {K::Peaking, 8000, 1.278793166183, -2.0655},
     0},
    {EqFlavour::Tamarin,
     EqBand::LowMid,
     {1, 500, 12, EqWidth::Wide},
     {K::Peaking, 500, 0.3880395795138, 15},
     {K::Peaking, 500, 1.064343028234, -2.55},
     0},
    {EqFlavour::Tamarin,
     EqBand::HighMid,
     {1, 2500, 6, EqWidth::Narrow},
     {K::Peaking, 2500, 0.6840839593635, 9.375},
     {K::Peaking, 2500, 1.679634713026, -1.59375},
     0},
    {EqFlavour::Tamarin,
     EqBand::High,
     {1, 8000, -12, EqWidth::Narrow},
     {K::HighShelf, 4000, 0.7286768652665, -17.25},
     {K::Peaking, 8000, 1.729283925047, 0},
     0},
    {EqFlavour::Tamarin,
     EqBand::Low,
     {1, 120, -9, EqWidth::Normal},
     {K::LowShelf, 240, 0.6, -11.64375},
     {K::Peaking, 240, 1.859225625097, 0},
     0},
    {EqFlavour::Tamarin,
     EqBand::LowMid,
     {1, 500, -9, EqWidth::Wide},
     {K::Peaking, 500, 0.6205979508901, -11.64375},
     {K::Peaking, 500, 0.2198749260503, 1.9756125},
     0},
    {EqFlavour::Tamarin,
     EqBand::LowMid,
     {1, 500, -9, EqWidth::Normal},
     {K::Peaking, 500, 0.8865685012715, -13.07390625},
     {K::Peaking, 500, 0.3434022658265, 2.2225640625},
     0},
    {EqFlavour::Tamarin,
     EqBand::HighMid,
     {1, 2500, -15, EqWidth::Narrow},
     {K::Peaking, 2500, 1.71412985479, -24.2109375},
     {K::Peaking, 2500, 0.7306635348423, 4.115859375},
     0},
    {EqFlavour::Juniper,
     EqBand::High,
     {1, 9000, 6, EqWidth::Normal},
     {K::LowPass, 6000, 0.705, 0},
     {K::None, 0, 0, 0},
     1.836538343348},
    {EqFlavour::Juniper,
     EqBand::Low,
     {1, 120, -6, EqWidth::Normal},
     {K::HighPass, 60, 0.7, 0},
     {K::None, 0, 0, 0},
     0.5445026528424},
    {EqFlavour::Juniper,
     EqBand::HighMid,
     {1, 2500, 12, EqWidth::Wide},
     {K::LowPass, 1250, 0.5, 0},
     {K::HighPass, 5000, 0.5, 0},
     2.818382931264},
    {EqFlavour::Juniper,
     EqBand::LowMid,
     {1, 500, -9, EqWidth::Normal},
     {K::LowPass, 187.0583514961, 0.3525, 0},
     {K::HighPass, 1336.481359963, 0.3525, 0},
     0.4216965034286},
    {EqFlavour::Juniper,
     EqBand::HighMid,
     {1, 2500, -18, EqWidth::Narrow},
     {K::LowPass, 1250, 0.5, 0},
     {K::HighPass, 5000, 0.5, 0},
     0.2365680102623},
    {EqFlavour::Juniper,
     EqBand::LowMid,
     {1, 500, 9, EqWidth::Narrow},
     {K::LowPass, 353.5533905933, 1, 0},
     {K::HighPass, 707.1067811865, 1, 0},
     2.464495463974},
};

Case design(EqFlavour flavour, EqBand band, const EqBandSettings& s)
{
    Case c{flavour, band, s, {}, {K::None, 0.0, 0.0, 0.0}, 0.0};
    if (flavour == EqFlavour::Sorrel) {
        c.first = sorrelSection(band, s);
    } else if (flavour == EqFlavour::Tamarin) {
        const TamarinSections t = tamarinSections(band, s);
        c.first = t.main;
        c.second = t.counter;
    } else {
        c.gain = juniperBandGain(band, s);
        if (isMidBand(band)) {
            const JuniperBellSplit split = juniperBellSplit(s);
            c.first = split.low;
            c.second = split.high;
        } else {
            c.first = juniperShelfSplit(band, s);
        }
    }
    return c;
}

void expectSection(const EqSectionSettings& got, const EqSectionSettings& want)
{
    EXPECT_EQ(got.kind, want.kind);
    EXPECT_NEAR(got.frequency, want.frequency, 1e-11 * want.frequency);
    EXPECT_NEAR(got.q, want.q, 1e-11 * want.q);
    EXPECT_NEAR(got.gainDb, want.gainDb, 1e-11 * std::abs(want.gainDb));
}

TEST(EqDesign, SettingsOfEachFlavour)
{
    for (const Case& want : kCases) {
        SCOPED_TRACE(&want - kCases);
        const Case got = design(want.flavour, want.band, want.settings);
        expectSection(got.first, want.first);
        expectSection(got.second, want.second);
        EXPECT_NEAR(got.gain, want.gain, 1e-11);
    }
}

TEST(EqDesign, ZeroGainIsUnityInEveryBandAndWidth)
{
    for (EqBand band : kAllEqBands) {
        for (EqWidth width : {EqWidth::Wide, EqWidth::Normal, EqWidth::Narrow}) {
            const EqBandSettings s{1, 300.0, 0.0, width};
            EXPECT_EQ(sorrelSection(band, s).gainDb, 0.0);
            EXPECT_EQ(tamarinSections(band, s).main.kind, K::Peaking);
            EXPECT_EQ(tamarinSections(band, s).main.gainDb, 0.0);
            EXPECT_EQ(tamarinSections(band, s).counter.gainDb, 0.0);
            EXPECT_EQ(juniperBandGain(band, s), 1.0);
        }
    }
}

} // namespace
} // namespace velmora
