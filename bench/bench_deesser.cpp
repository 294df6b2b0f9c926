#include "bench/module_bench.h"
#include "modules/deesser/strip_effect_deesser.h"

namespace velmora::bench {
namespace {

constexpr std::uint32_t kWindow = 256;
constexpr std::uint32_t kFreq = kWindow + 16;
constexpr std::uint32_t kSplit = kWindow + 21;

void deesserSteady(benchmark::State& state)
{
    StripEffectDeesser module(kWindow, 399, 711);
    module.setParameter(kSplit, static_cast<double>(state.range(0)));
    runModule(state, module);
}
BENCHMARK(deesserSteady)->ArgName("split")->Arg(0)->Arg(1);

void deesserGliding(benchmark::State& state)
{
    StripEffectDeesser module(kWindow, 399, 711);
    double value = 0.2;
    runModule(state, module, [&] {
        value = value > 0.9 ? 0.2 : value + 0.001;
        module.setParameter(kFreq, value);
    });
}
BENCHMARK(deesserGliding);

} // namespace
} // namespace velmora::bench
