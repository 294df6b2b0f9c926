#include "bench/module_bench.h"
#include "modules/expander/strip_effect_expander.h"

namespace velmora::bench {
namespace {

constexpr std::uint32_t kWindow = 80;

// Key filters in; the threshold at -12 dB, which the bench's tones cross both ways. @param type variant 0..3
void load(StripEffectExpander& module, int type)
{
    module.loadDefaults();
    module.setParameter(kWindow + 20, 0.8);
    module.setParameter(kWindow + 23, 1.0);
    module.setParameter(kWindow + 25, 1.0);
    module.setParameter(kWindow, type / 15.0);
    module.reset();
}

void expanderSteady(benchmark::State& state)
{
    StripEffectExpander module(kWindow, 371, 516);
    load(module, static_cast<int>(state.range(0)));
    runModule(state, module);
}
BENCHMARK(expanderSteady)->ArgName("type")->DenseRange(0, 3);

// Both key filters sweep, and with them the gain.
void expanderGliding(benchmark::State& state)
{
    StripEffectExpander module(kWindow, 371, 516);
    load(module, static_cast<int>(state.range(0)));
    double value = 0.3;
    runModule(state, module, [&] {
        value = value > 0.7 ? 0.3 : value + 0.001;
        module.setParameter(kWindow + 24, value);
        module.setParameter(kWindow + 26, value);
    });
}
BENCHMARK(expanderGliding)->ArgName("type")->DenseRange(1, 3);

void expanderWithoutKeyFilters(benchmark::State& state)
{
    StripEffectExpander module(kWindow, 371, 516);
    load(module, static_cast<int>(state.range(0)));
    module.setParameter(kWindow + 23, 0.0);
    module.setParameter(kWindow + 25, 0.0);
    runModule(state, module);
}
BENCHMARK(expanderWithoutKeyFilters)->ArgName("type")->DenseRange(1, 3);

} // namespace
} // namespace velmora::bench
