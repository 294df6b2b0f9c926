#include "bench/module_bench.h"
#include "modules/input/console_emulation.h"
#include "modules/input/strip_effect_input.h"
#include "tests/plain/preamp_console.h"

namespace velmora::bench {
namespace {

constexpr std::uint32_t kWindow = 16;
constexpr std::uint32_t kGain = kWindow + 16;
constexpr std::uint32_t kAutoIn = kWindow + 17;
constexpr std::uint32_t kDrive = kWindow + 24;
constexpr std::uint32_t kNoiseIn = kWindow + 25;

void prepare(StripEffectInput& module, int type)
{
    module.setSampleRate(48000.0);
    module.loadDefaults();
    module.setParameter(kWindow, type / 15.0);
    module.reset();
}

/// Argument 0: Type index. Argument 1: noise mode, 0 off, 1 auto mute, 2 on.
void steady(benchmark::State& state)
{
    StripEffectInput module(kWindow, 361, 438);
    prepare(module, static_cast<int>(state.range(0)));
    module.setParameter(kNoiseIn, static_cast<double>(state.range(1)) / 2.0);
    runModule(state, module);
}

void gliding(benchmark::State& state)
{
    StripEffectInput module(kWindow, 361, 438);
    prepare(module, static_cast<int>(state.range(0)));
    double v = 0.25;
    runModule(state, module, [&] {
        v = 1.0 - v;
        module.setParameter(kGain, v);
        module.setParameter(kDrive, v);
    });
}

void automaticGain(benchmark::State& state)
{
    StripEffectInput module(kWindow, 361, 438);
    prepare(module, 1);
    module.setParameter(kAutoIn, 1.0);
    runModule(state, module);
}

/// A console with its drive settled. Argument 0: Type index. Argument 1: noise mode.
template <typename Console>
void console(benchmark::State& state)
{
    Console console(0);
    console.setSampleRate(48000.0);
    console.setDrive(0.5);
    console.setNoiseLevel(0.5);
    console.select(static_cast<int>(state.range(0)));
    console.setNoiseMode(static_cast<preamp::NoiseMode>(state.range(1)));
    console.reset();
    preamp::RailBlocks tone, blocks;
    for (unsigned i = 0; i < kBlock; ++i)
        tone[0][i] = tone[1][i] = 0.4 * std::sin(0.13 * i) + 0.2 * std::sin(0.71 * i);
    for (auto _ : state) {
        blocks = tone;
        console.run(blocks, kBlock);
        benchmark::DoNotOptimize(blocks);
    }
    reportPerSample(state, kBlock);
}

BENCHMARK(console<plain::Console>)
    ->Name("PreampConsole/plain")
    ->ArgsProduct({{2, 3, 4, 5}, {0, 1, 2}})
    ->ArgNames({"type", "noise"});
BENCHMARK(console<preamp::ConsoleEmulation>)
    ->Name("PreampConsole/fast")
    ->ArgsProduct({{2, 3, 4, 5}, {0, 1, 2}})
    ->ArgNames({"type", "noise"});
BENCHMARK(steady)->ArgsProduct({{1, 2, 3, 4, 5}, {0, 1, 2}})->ArgNames({"type", "noise"});
BENCHMARK(gliding)->DenseRange(1, 5)->ArgName("type");
BENCHMARK(automaticGain);

} // namespace
} // namespace velmora::bench
