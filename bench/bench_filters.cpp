#include "bench/module_bench.h"
#include "modules/filters/strip_effect_filters.h"

namespace velmora::bench {
namespace {

constexpr std::uint32_t kWindow = 48;
constexpr std::uint32_t kMoved[]{kWindow + 17, kWindow + 21, kWindow + 25}; // the three frequencies
constexpr std::uint32_t kSlopes[]{kWindow + 18, kWindow + 26};

// All three filters in, at their steepest. @param type variant 0..3
void load(StripEffectFilters& module, int type)
{
    module.loadDefaults();
    for (std::uint32_t id : kSlopes) module.setParameter(id, 1.0);
    module.setParameter(kWindow, type / 15.0);
    module.reset();
}

void filtersSteady(benchmark::State& state)
{
    StripEffectFilters module(kWindow, 367, 477);
    load(module, static_cast<int>(state.range(0)));
    runModule(state, module);
}
BENCHMARK(filtersSteady)->ArgName("type")->DenseRange(0, 3);

void filtersGliding(benchmark::State& state)
{
    StripEffectFilters module(kWindow, 367, 477);
    load(module, static_cast<int>(state.range(0)));
    double value = 0.3;
    runModule(state, module, [&] {
        value = value > 0.7 ? 0.3 : value + 0.001;
        for (std::uint32_t id : kMoved) module.setParameter(id, value);
    });
}
BENCHMARK(filtersGliding)->ArgName("type")->DenseRange(1, 3);

} // namespace
} // namespace velmora::bench
