#include "bench/module_bench.h"
#include "modules/marlow/strip_effect_marlow.h"
#include "tests/plain/marlow.h"

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

// The whole module, with the gain on the move, against the way from key to output sample by sample, without
// meters and without the shortcut for what stands still.
void plainForm(benchmark::State& state)
{
    plain::Marlow eq({0.5, 0.5, 0.5, 0.25, 0.5, 0.5, 0.5, MarlowShape::Peak, MarlowControl::Direct}, 44100.0);
    ModuleBuffers buffers;
    for (auto _ : state) {
        buffers.refill();
        double* x = buffers.record.left(0);
        for (int i = 0; i < kBlock; ++i) x[i] = eq.process(x[i]);
        benchmark::DoNotOptimize(x[0]);
    }
    reportPerSample(state, kBlock);
}
void fastForm(benchmark::State& state)
{
    StripEffectMarlow module(kWindow, 399, 711);
    module.setParameter(kAbove, 0.25);
    runModule(state, module);
}
BENCHMARK(plainForm)->Name("Marlow/plain");
BENCHMARK(fastForm)->Name("Marlow/fast");

} // namespace
} // namespace velmora::bench
