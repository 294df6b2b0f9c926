#include "bench/module_bench.h"
#include "modules/output/strip_effect_output.h"
#include "tests/plain/master_control.h"

namespace velmora::bench {
namespace {

constexpr std::uint32_t kWindow = 224;
constexpr std::uint32_t kGain = kWindow + 18;

void outputSteady(benchmark::State& state)
{
    StripEffectOutput module(kWindow, 387, 672);
    runModule(state, module);
}
BENCHMARK(outputSteady);

void outputGliding(benchmark::State& state)
{
    StripEffectOutput module(kWindow, 387, 672);
    double value = 0.5;
    runModule(state, module, [&] {
        value = value > 0.9 ? 0.5 : value + 0.001;
        module.setParameter(kGain, value);
    });
}
BENCHMARK(outputGliding);

void masterControlPlain(benchmark::State& state)
{
    plain::MasterControl control(44100.0);
    ModuleBuffers buffers;
    for (auto _ : state) {
        buffers.refill();
        double* block = buffers.record.left(0);
        for (int i = 0; i < kBlock; ++i) block[i] = control.process(block[i], 1.0, true);
        benchmark::DoNotOptimize(control);
        benchmark::DoNotOptimize(block[0]);
    }
    reportPerSample(state, kBlock);
}
BENCHMARK(masterControlPlain)->Name("MasterControl/plain");
BENCHMARK(outputSteady)->Name("MasterControl/fast"); // level meters included

void outputPassThrough(benchmark::State& state)
{
    StripEffectOutput module(kWindow, 387, 672);
    module.setParameter(kWindow, 0.0);
    runModule(state, module);
}
BENCHMARK(outputPassThrough);

} // namespace
} // namespace velmora::bench
