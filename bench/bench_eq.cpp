#include "bench/module_bench.h"
#include "modules/eq/strip_effect_eq.h"

namespace velmora::bench {
namespace {

constexpr std::uint32_t kBase = 144;
constexpr std::uint32_t kFirstGain = kBase + 17;
constexpr std::uint32_t kAnalog = kBase + 33;

void setUp(StripEffectEq& eq, EqFlavour flavour, bool analog)
{
    eq.setSampleRate(48000.0);
    eq.setParameter(kBase, static_cast<int>(flavour) / 15.0);
    for (std::uint32_t band = 0; band < kEqBands; ++band) {
        eq.setParameter(kBase + 16 + 4 * band, 1.0);
        eq.setParameter(kFirstGain + 4 * band, band % 2 == 0 ? 0.7 : 0.35);
        eq.setParameter(kBase + 18 + 4 * band, 0.5);
    }
    eq.setParameter(kAnalog, analog ? 1.0 : 0.0);
    eq.reset();
}

void steady(benchmark::State& state, EqFlavour flavour, bool analog)
{
    StripEffectEq eq(kBase, 379, 594);
    setUp(eq, flavour, analog);
    runModule(state, eq);
}

// One gain moves in each block; all four bands keep gliding.
void gliding(benchmark::State& state, EqFlavour flavour)
{
    StripEffectEq eq(kBase, 379, 594);
    setUp(eq, flavour, true);
    unsigned turn = 0;
    runModule(state, eq, [&] {
        eq.setParameter(kFirstGain + 4 * (turn % 4), 0.3 + 0.1 * (turn / 4 % 5));
        ++turn;
    });
}

BENCHMARK_CAPTURE(steady, sorrel_clean, EqFlavour::Sorrel, false);
BENCHMARK_CAPTURE(steady, tamarin_clean, EqFlavour::Tamarin, false);
BENCHMARK_CAPTURE(steady, juniper_clean, EqFlavour::Juniper, false);
BENCHMARK_CAPTURE(steady, sorrel_analog, EqFlavour::Sorrel, true);
BENCHMARK_CAPTURE(steady, tamarin_analog, EqFlavour::Tamarin, true);
BENCHMARK_CAPTURE(steady, juniper_analog, EqFlavour::Juniper, true);
BENCHMARK_CAPTURE(gliding, sorrel, EqFlavour::Sorrel);
BENCHMARK_CAPTURE(gliding, tamarin, EqFlavour::Tamarin);
BENCHMARK_CAPTURE(gliding, juniper, EqFlavour::Juniper);

} // namespace
} // namespace velmora::bench
