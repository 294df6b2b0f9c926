#include "bench/module_bench.h"
#include "modules/limiter/strip_effect_limiter.h"

namespace velmora {
namespace {

using namespace limiter;

constexpr std::uint32_t kWindow = 192;

void set(StripEffectLimiter& module, ParameterId offset, double value)
{
    module.setParameter(kWindow + static_cast<std::uint32_t>(offset), value);
}

// Arguments: type, soft, mode of the brick wall or shape of the saturator.
void prepare(StripEffectLimiter& module, const benchmark::State& state)
{
    module.loadDefaults();
    set(module, kTypeOffset, static_cast<double>(state.range(0)) / 15.0);
    set(module, kSoftOffset, static_cast<double>(state.range(1)));
    set(module, state.range(0) == kBrickWall ? kModeOffset : kShapeOffset,
        static_cast<double>(state.range(2)) / 10.0);
    set(module, kCeilingOffset, 0.6); // -10 dB: the tones stay above the ceiling
    set(module, kHighPassOffset, 0.5);
    module.reset();
}

void Steady(benchmark::State& state)
{
    StripEffectLimiter module(kWindow, 383, 633);
    prepare(module, state);
    bench::runModule(state, module);
}

// Ceiling and the sections' frequency move in each block.
void Gliding(benchmark::State& state)
{
    StripEffectLimiter module(kWindow, 383, 633);
    prepare(module, state);
    double phase = 0.0;
    bench::runModule(state, module, [&] {
        phase = phase < 1.0 ? phase + 0.001 : 0.0;
        set(module, kCeilingOffset, 0.5 + 0.2 * phase);
        set(module, kHighPassOffset, 0.3 + 0.4 * phase);
    });
}

void variants(benchmark::internal::Benchmark* bench)
{
    bench->ArgNames({"type", "soft", "choice"});
    for (int soft : {0, 1}) {
        bench->Args({kOpto, soft, 0});
        bench->Args({kVca, soft, 0});
        for (int mode : {0, 1, 2}) bench->Args({kBrickWall, soft, mode});
        for (int shape = 0; shape <= kLastSaturatorShape; ++shape) bench->Args({kSaturator, soft, shape});
    }
}

BENCHMARK(Steady)->Apply(variants);
BENCHMARK(Gliding)->Apply(variants);

} // namespace
} // namespace velmora
