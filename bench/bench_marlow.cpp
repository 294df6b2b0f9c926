#include "bench/module_bench.h"
#include "modules/marlow/strip_effect_marlow.h"

namespace velmora::bench {
namespace {

constexpr std::uint32_t kWindow = 256;
constexpr std::uint32_t kFrequency = kWindow + 18;
constexpr std::uint32_t kAbove = kWindow + 19;
constexpr std::uint32_t kFilterType = kWindow + 23;

/// The gain moves on every sample: one design each.
void marlowSteady(benchmark::State& state)
{
    StripEffectMarlow module(kWindow, 399, 711);
    module.setParameter(kAbove, 0.25);
    module.setParameter(kFilterType, 0.5 * static_cast<double>(state.range(0)));
    runModule(state, module);
}
BENCHMARK(marlowSteady)->ArgName("type")->DenseRange(0, 2);

/// Both gains alike: no design at all.
void marlowAtRest(benchmark::State& state)
{
    StripEffectMarlow module(kWindow, 399, 711);
    runModule(state, module);
}
BENCHMARK(marlowAtRest);

/// Frequency moves: three designs a sample.
void marlowGliding(benchmark::State& state)
{
    StripEffectMarlow module(kWindow, 399, 711);
    module.setParameter(kAbove, 0.25);
    double value = 0.2;
    runModule(state, module, [&] {
        value = value > 0.9 ? 0.2 : value + 0.001;
        module.setParameter(kFrequency, value);
    });
}
BENCHMARK(marlowGliding);

} // namespace
} // namespace velmora::bench
