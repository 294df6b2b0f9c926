#include "bench/module_bench.h"
#include "modules/dehummer/strip_effect_dehummer.h"

namespace velmora::bench {
namespace {

constexpr std::uint32_t kWindow = 256;
constexpr std::uint32_t kMonitor = kWindow + 5;
constexpr std::uint32_t kOffset = kWindow + 20;

void dehummerSteady(benchmark::State& state)
{
    StripEffectDehummer module(kWindow, 399, 711);
    module.setParameter(kMonitor, static_cast<double>(state.range(0)));
    module.reset();
    runModule(state, module);
}
BENCHMARK(dehummerSteady)->ArgName("monitor")->Arg(0)->Arg(1);

void dehummerGliding(benchmark::State& state)
{
    StripEffectDehummer module(kWindow, 399, 711);
    double value = 0.2;
    runModule(state, module, [&] {
        value = value > 0.9 ? 0.2 : value + 0.001;
        module.setParameter(kOffset, value);
    });
}
BENCHMARK(dehummerGliding);

} // namespace
} // namespace velmora::bench
