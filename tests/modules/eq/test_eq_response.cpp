#include "modules/eq/juniper_design.h"
#include "modules/eq/sorrel_design.h"
#include "modules/eq/tamarin_design.h"
#include "params/laws/equalizer_laws.h"
#include "tests/modules/eq/eq_rig.h"

#include <gtest/gtest.h>

#include <cstdio>

namespace velmora::test {
namespace {

using Complex = std::complex<double>;
using K = StripBiquadKind;

// The section as its analogue prototype, seen through the bilinear transform; no digital coefficients.
Complex prototype(const EqSectionSettings& s, double hz, double rate)
{
    const auto warped = [&](double f) { return std::tan(std::numbers::pi * f / rate); };
    const double f0 = std::min(0.499 * rate, s.frequency);
    const Complex p{0.0, warped(hz) / warped(f0)};
    const auto q = [&](double exponent, double scale) {
        return s.q * (1.0 - std::pow(f0 / (scale * rate), exponent));
    };
    const double a = std::pow(10.0, s.gainDb / 40.0);
    switch (s.kind) {
    case K::HighPass:
        return p * p / (p * p + p / q(6.0, 0.5001) + 1.0);
    case K::LowPass:
        return 1.0 / (p * p + p / q(8.0, 0.50001) + 1.0);
    case K::Peaking: {
        const double width = q(2.8, 0.5001);
        return (p * p + p * a / width + 1.0) / (p * p + p / (a * width) + 1.0);
    }
    case K::LowShelf: {
        const Complex damping = p * std::sqrt(a) / q(3.5, 0.5001);
        return a * (p * p + damping + a) / (a * p * p + damping + 1.0);
    }
    case K::HighShelf: {
        const Complex damping = p * std::sqrt(a) / q(4.0, 0.5001);
        return a * (a * p * p + damping + 1.0) / (p * p + damping + a);
    }
    default:
        return 1.0;
    }
}

Complex serialBand(EqFlavour flavour, EqBand band, const EqBandSettings& s, double hz, double rate)
{
    if (flavour == EqFlavour::Sorrel) return prototype(sorrelSection(band, s), hz, rate);
    const TamarinSections t = tamarinSections(band, s);
    return prototype(t.main, hz, rate) * prototype(t.counter, hz, rate);
}

Complex parallelBand(EqBand band, const EqBandSettings& s, double hz, double rate)
{
    const double gain = juniperBandGain(band, s) - 1.0;
    if (!isMidBand(band)) return gain * (1.0 - prototype(juniperShelfSplit(band, s), hz, rate));
    const JuniperBellSplit split = juniperBellSplit(s);
    return gain * (1.0 - prototype(split.low, hz, rate)) * (1.0 - prototype(split.high, hz, rate));
}

Complex expected(EqFlavour flavour, const PerBand<EqBandSettings>& bands, double hz, double rate)
{
    Complex h = 1.0;
    for (EqBand band : kAllEqBands) {
        const EqBandSettings& s = bands[index(band)];
        if (flavour == EqFlavour::Juniper)
            h += parallelBand(band, s, hz, rate);
        else
            h *= serialBand(flavour, band, s, hz, rate);
    }
    return h;
}

Signal impulseResponse(EqRig& rig, double rate, double seconds)
{
    rig.module.reset();
    rig.run(Signal(static_cast<std::size_t>(rate * 0.1))); // bands fade in
    Signal impulse(static_cast<std::size_t>(rate * seconds));
    impulse[0] = 1.0;
    return rig.run(impulse);
}

// Every band takes every width, boosted and cut, while its neighbours are set differently.
double worstError(EqFlavour flavour, double rate, int variant)
{
    constexpr PerBand<double> freq{0.62, 0.4, 0.5, 0.3};
    constexpr PerBand<double> amount{0.25, 0.4, 0.3, 0.35};
    constexpr PerBand<double (*)(double)> law{equalizer::highHz, equalizer::highMidHz, equalizer::lowMidHz,
                                              equalizer::lowHz};
    EqRig rig(flavour, rate);
    PerBand<EqBandSettings> bands;
    for (EqBand band : kAllEqBands) {
        const std::size_t b = index(band);
        const int width = (variant + static_cast<int>(b)) % 3;
        const double sign = (variant / 3 + static_cast<int>(b)) % 2 == 0 ? 1.0 : -1.0;
        const double gain = 0.5 + sign * amount[b];
        rig.setBand(band, 1.0, gain, freq[b], width / 2.0);
        bands[b] = {1, law[b](freq[b]), equalizer::gainDb(gain), static_cast<EqWidth>(width)};
    }
    const Signal h = impulseResponse(rig, rate, 1.0);
    double worst = 0.0;
    for (double hz : {25.0, 90.0, 210.0, 500.0, 1300.0, 3600.0, 9100.0, 17500.0}) {
        const Complex want = expected(flavour, bands, hz, rate);
        worst = std::max(worst, std::abs(bin(h, hz, rate) - want) / std::abs(want));
    }
    return worst;
}

TEST(EqResponse, FollowsThePrototypesAtEveryRate)
{
    for (EqFlavour flavour : kFlavours) {
        for (double rate : {44100.0, 96000.0, 384000.0}) {
            double worst = 0.0;
            for (int variant = 0; variant < 6; ++variant)
                worst = std::max(worst, worstError(flavour, rate, variant));
            std::printf("%-8s %6.0f Hz: worst relative error %.2e\n", name(flavour), rate, worst);
            EXPECT_LT(worst, 1e-8);
        }
    }
}

TEST(EqResponse, GainAtTheCentre)
{
    constexpr double kRate = 48000.0;
    const double centre = equalizer::highMidHz(0.5);
    for (EqFlavour flavour : kFlavours) {
        for (double gain : {-18.0, -9.0, -3.0, 0.0, 3.0, 9.0, 18.0}) {
            PerBand<EqBandSettings> bands{};
            for (double width : {0.0, 0.5, 1.0}) {
                EqRig rig(flavour, kRate);
                rig.setBand(EqBand::HighMid, 1.0, gain / 36.0 + 0.5, 0.5, width);
                const double got = db(std::abs(bin(impulseResponse(rig, kRate, 0.5), centre, kRate)));
                const double stretch = 1.0 + 0.25 * width;
                double want = stretch * gain;
                if (flavour == EqFlavour::Sorrel && width == 0.0) want = gain;
                if (flavour == EqFlavour::Tamarin)
                    want = 0.83 * 1.25 * gain * stretch * (gain < 0.0 ? 1.033 : 1.0);
                if (flavour == EqFlavour::Juniper) {
                    bands[index(EqBand::HighMid)] = {1, centre, gain, static_cast<EqWidth>(width * 2.0)};
                    want = db(std::abs(expected(flavour, bands, centre, kRate)));
                }
                std::printf("%s%s%7.3f", width == 0.0 ? name(flavour) : "", width == 0.0 ? " HM wide " : " ",
                            got);
                EXPECT_NEAR(got, want, 1e-8) << name(flavour) << gain << width;
            }
            std::printf(" dB set %g\n", gain);
        }
    }
}

} // namespace
} // namespace velmora::test
