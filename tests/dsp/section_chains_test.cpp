#include "dsp/section_chains.h"
#include "tests/support/chain_check.h"

namespace velmora::test {
namespace {

double chance(std::mt19937& random)
{
    return std::uniform_real_distribution<double>(0.0, 1.0)(random);
}

double frequency(std::mt19937& random)
{
    return 20.0 * std::pow(900.0, chance(random));
}

ChainCheck<StripBiquad> biquads(bool limited)
{
    return {.fast = runChains,
            .make =
                [limited](std::mt19937& random) {
                    StripBiquad section(static_cast<StripBiquadKind>(random() % 11), frequency(random),
                                        0.3 + 4.0 * chance(random), 24.0 * chance(random) - 12.0);
                    section.setEnabled(chance(random) < 0.85);
                    section.setSoftLimit(limited && chance(random) < 0.5);
                    section.setSampleRate(48000.0);
                    if (chance(random) < 0.5) section.resetState();
                    return section;
                },
            // Glides start and end anywhere.
            .disturb =
                [](StripBiquad& section, std::mt19937& random) {
                    const double what = chance(random);
                    if (what < 0.04)
                        section.setFrequency(frequency(random));
                    else if (what < 0.06)
                        section.setEnabled(!section.enabled());
                    else if (what < 0.07)
                        section.resetState();
                },
            .state =
                [](StripBiquad& section) {
                    const BiquadHistory& h = section.parts().history;
                    const BiquadCoefficients& c = section.glide().current();
                    return std::vector{
                        h.x1, h.x2, h.y1, h.y2, c.b0,
                        c.b1, c.b2, c.a1, c.a2, static_cast<double>(section.glide().samplesLeft())};
                }};
}

TEST(SectionChains, HaveTheBitsOfSectionAfterSection)
{
    biquads(false).runAll({{1},
                           {2},
                           {3},
                           {4},
                           {5},
                           {6},
                           {8},
                           {18},
                           {20},
                           {23},
                           {4, 2},
                           {3, 3, 1, 5},
                           {7, 8},
                           {1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1}});
    biquads(true).runAll({{3}, {4, 2}});
}

// Glides of 2646 samples that all begin at once, so that they end together, each in its own lane's time.
TEST(SectionChains, LandTogetherAfterACommonGlide)
{
    std::array<StripBiquad, 18> fast;
    for (std::size_t k = 0; k < fast.size(); ++k) {
        fast[k] = StripBiquad(StripBiquadKind::Peaking, 60.0 * static_cast<double>(k + 1), 30.0, -20.0);
        fast[k].setEnabled(true);
        fast[k].setSampleRate(44100.0);
    }
    std::array<StripBiquad, 18> one = fast;
    std::vector<double> expected(2800);
    for (std::size_t n = 0; n < expected.size(); ++n) expected[n] = std::sin(0.01 * static_cast<double>(n));
    std::vector<double> got = expected;
    for (StripBiquad& section : one)
        for (double& x : expected) x = section.runSample(x);
    for (std::size_t n = 0; n < got.size(); n += 100) runInSeries(fast, got.data() + n, 100);
    EXPECT_EQ(got, expected);
    EXPECT_FALSE(fast[17].glide().gliding());
}

} // namespace
} // namespace velmora::test
