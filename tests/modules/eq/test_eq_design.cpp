#include "modules/eq/juniper_design.h"
#include "modules/eq/sorrel_design.h"
#include "modules/eq/tamarin_design.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

using K = StripBiquadKind;
using enum EqFlavour;
using enum EqBand;
using enum EqWidth;
using enum StripBiquadKind;

struct Case {
    EqFlavour flavour;
    EqBand band;
    EqBandSettings settings;
    EqSectionSettings first;
    EqSectionSettings second;
    double gain;
};

// Worked out apart from this code, 13 digits.
// clang-format off
const Case kCases[] = {
    {Sorrel, High, {1, 8000, 6, Wide}, {HighShelf, 2640, 0.3846686296154, 6}, {None, 0, 0, 0}, 0},
    {Sorrel, High, {1, 8000, -9, Narrow}, {Peaking, 8000, 0.3656870541066, -10.08}, {None, 0, 0, 0}, 0},
    {Sorrel, HighMid, {1, 2500, 12, Wide}, {Peaking, 2500, 0.2655206346244, 12}, {None, 0, 0, 0}, 0},
    {Sorrel, LowMid, {1, 500, -12, Narrow}, {Peaking, 500, 0.5310412692488, -15}, {None, 0, 0, 0}, 0},
    {Sorrel, Low, {1, 120, 9, Normal}, {LowShelf, 360, 0.5450343070856, 9}, {None, 0, 0, 0}, 0},
    {Sorrel, HighMid, {1, 2500, -6, Normal}, {Peaking, 2500, 0.3456649903895, -6.75}, {None, 0, 0, 0}, 0},
    {Tamarin, High, {1, 8000, 9, Normal}, {Peaking, 8000, 0.503243281149, 12.15}, {Peaking, 8000, 1.278793166183, -2.0655}, 0},
    {Tamarin, LowMid, {1, 500, 12, Wide}, {Peaking, 500, 0.3880395795138, 15}, {Peaking, 500, 1.064343028234, -2.55}, 0},
    {Tamarin, HighMid, {1, 2500, 6, Narrow}, {Peaking, 2500, 0.6840839593635, 9.375}, {Peaking, 2500, 1.679634713026, -1.59375}, 0},
    {Tamarin, High, {1, 8000, -12, Narrow}, {HighShelf, 4000, 0.7286768652665, -17.25}, {Peaking, 8000, 1.729283925047, 0}, 0},
    {Tamarin, Low, {1, 120, -9, Normal}, {LowShelf, 240, 0.6, -11.64375}, {Peaking, 240, 1.859225625097, 0}, 0},
    {Tamarin, LowMid, {1, 500, -9, Wide}, {Peaking, 500, 0.6205979508901, -11.64375}, {Peaking, 500, 0.2198749260503, 1.9756125}, 0},
    {Tamarin, LowMid, {1, 500, -9, Normal}, {Peaking, 500, 0.8865685012715, -13.07390625}, {Peaking, 500, 0.3434022658265, 2.2225640625}, 0},
    {Tamarin, HighMid, {1, 2500, -15, Narrow}, {Peaking, 2500, 1.71412985479, -24.2109375}, {Peaking, 2500, 0.7306635348423, 4.115859375}, 0},
    {Juniper, High, {1, 9000, 6, Normal}, {LowPass, 6000, 0.705, 0}, {None, 0, 0, 0}, 1.836538343348},
    {Juniper, Low, {1, 120, -6, Normal}, {HighPass, 60, 0.7, 0}, {None, 0, 0, 0}, 0.5445026528424},
    {Juniper, HighMid, {1, 2500, 12, Wide}, {LowPass, 1250, 0.5, 0}, {HighPass, 5000, 0.5, 0}, 2.818382931264},
    {Juniper, LowMid, {1, 500, -9, Normal}, {LowPass, 187.0583514961, 0.3525, 0}, {HighPass, 1336.481359963, 0.3525, 0}, 0.4216965034286},
    {Juniper, HighMid, {1, 2500, -18, Narrow}, {LowPass, 1250, 0.5, 0}, {HighPass, 5000, 0.5, 0}, 0.2365680102623},
    {Juniper, LowMid, {1, 500, 9, Narrow}, {LowPass, 353.5533905933, 1, 0}, {HighPass, 707.1067811865, 1, 0}, 2.464495463974},
};
// clang-format on

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
