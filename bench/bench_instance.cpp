// What a host waits for when it makes an instance. The aim is 5 ms.

#include "host/vst24/vst24_effect_wrapper.h"
#include "tools/host/private_home.h"

#include <benchmark/benchmark.h>

#include <memory>

namespace velmora {
namespace {

std::intptr_t hostCallback(vst24::AEffect*, std::int32_t opcode, std::int32_t, std::intptr_t, void*, float)
{
    return opcode == vst24::audioMasterVersion ? vst24::kVstVersion : 0;
}

/// The preset library is made with the process's first instance and isn't part of the time.
void BM_CreateInstance(benchmark::State& state)
{
    const host::PrivateHome home;
    const vst24::QORVST24EffectWrapper first(&hostCallback);
    for (auto _ : state) {
        auto effect = std::make_unique<vst24::QORVST24EffectWrapper>(&hostCallback);
        benchmark::DoNotOptimize(effect.get());
        state.PauseTiming();
        effect.reset();
        state.ResumeTiming();
    }
}

/// Rate, block size and resume, as a host does before it plays.
void BM_StartInstance(benchmark::State& state)
{
    const host::PrivateHome home;
    vst24::QORVST24EffectWrapper effect(&hostCallback);
    float rate = 48000.0f;
    for (auto _ : state) {
        effect.setSampleRate(rate);
        effect.resume();
        rate = rate == 48000.0f ? 96000.0f : 48000.0f;
    }
}

BENCHMARK(BM_CreateInstance)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_StartInstance)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace velmora
