#include "bench/module_bench.h"
#include "engine/velmora_mono_effect.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <vector>

namespace velmora {
namespace {

/// What the rack costs by itself: every role empty, or the product's modules with all types at 0.
ModuleFactory emptyFactory()
{
    return {[](Role, const ModuleBases&) { return nullptr; },
            [](std::int32_t, const ModuleBases&) { return nullptr; }};
}

void turnTypesOff(VelmoraMonoEffect& effect)
{
    for (const RoleWindow& window : kRoleWindows) effect.setParameter(window.windowBase + kTypeOffset, 0.0);
}

template <typename Sample>
struct HostBuffers {
    explicit HostBuffers(std::size_t frames)
    {
        for (auto& channel : samples) {
            channel.resize(frames);
            for (std::size_t i = 0; i < frames; ++i)
                channel[i] = static_cast<Sample>(0.5 * std::sin(0.13 * static_cast<double>(i)));
        }
    }
    std::array<std::vector<Sample>, 6> samples;
    std::array<Sample*, 4> inputs{samples[0].data(), samples[1].data(), samples[2].data(), samples[3].data()};
    std::array<Sample*, 2> outputs{samples[4].data(), samples[5].data()};
};

void process(VelmoraMonoEffect& effect, HostBuffers<float>& host, std::int32_t frames)
{
    effect.processFloat(host.inputs.data(), host.outputs.data(), frames);
}

void process(VelmoraMonoEffect& effect, HostBuffers<double>& host, std::int32_t frames)
{
    effect.processDouble(host.inputs.data(), host.outputs.data(), frames);
}

template <typename Sample>
void runStrip(benchmark::State& state, VelmoraMonoEffect& effect)
{
    const auto frames = static_cast<std::int32_t>(state.range(0));
    HostBuffers<Sample> host(static_cast<std::size_t>(frames));
    for (auto _ : state) {
        process(effect, host, frames);
        benchmark::DoNotOptimize(host.samples[4][0]);
        benchmark::ClobberMemory();
    }
    bench::reportPerSample(state, static_cast<int>(frames));
}

template <typename Sample>
void BM_EmptyRack(benchmark::State& state)
{
    VelmoraMonoEffect effect(emptyFactory());
    runStrip<Sample>(state, effect);
}

template <typename Sample>
void BM_EmptyStrip(benchmark::State& state)
{
    VelmoraMonoEffect effect;
    turnTypesOff(effect);
    runStrip<Sample>(state, effect);
}

void BM_InsertSwap(benchmark::State& state)
{
    VelmoraMonoEffect effect;
    std::int32_t turn = 0;
    for (auto _ : state) effect.setParameter(256, (++turn & 1) != 0 ? 49 / 255.0 : 50 / 255.0);
}

BENCHMARK(BM_EmptyRack<double>)->Arg(1)->Arg(64)->Arg(512);
BENCHMARK(BM_EmptyRack<float>)->Arg(64)->Arg(512);
BENCHMARK(BM_EmptyStrip<double>)->Arg(64)->Arg(512);
BENCHMARK(BM_EmptyStrip<float>)->Arg(64)->Arg(512);
BENCHMARK(BM_InsertSwap);

} // namespace
} // namespace velmora
