#pragma once

#include "engine/audio_record.h"
#include "engine/strip_effect.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace velmora::bench {

inline constexpr int kBlock = 64;

/// Four work channels and their record, filled with a steady two-tone signal.
class ModuleBuffers {
public:
    ModuleBuffers()
    {
        for (int i = 0; i < kBlock; ++i)
            tone_[static_cast<unsigned>(i)] = 0.4 * std::sin(0.13 * i) + 0.2 * std::sin(0.71 * i);
        for (unsigned c = 0; c < 4; ++c) record.channels[c] = channels_[c].data();
        refill();
    }
    void refill() { channels_.fill(tone_); }

    AudioRecord record;

private:
    std::array<double, kBlock> tone_{};
    std::array<std::array<double, kBlock>, 4> channels_{};
};

/// Reports the time of one sample; `samples` went by in each iteration.
inline void reportPerSample(benchmark::State& state, int samples)
{
    state.counters["per_sample"] =
        benchmark::Counter(static_cast<double>(state.iterations()) * samples,
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

/// Runs a module in 64-sample blocks and reports ns per sample. `before` runs at the head of each block, for
/// example to move a parameter so that the module keeps gliding.
template <typename Before>
void runModule(benchmark::State& state, StripEffect& module, Before before)
{
    ModuleBuffers buffers;
    for (auto _ : state) {
        buffers.refill();
        before();
        module.processMono(buffers.record, buffers.record, kBlock);
        benchmark::DoNotOptimize(buffers.record.channels[0][0]);
    }
    reportPerSample(state, kBlock);
}

inline void runModule(benchmark::State& state, StripEffect& module)
{
    runModule(state, module, [] {});
}

} // namespace velmora::bench
