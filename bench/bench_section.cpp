#include "bench/module_bench.h"
#include "dsp/strip_biquad.h"
#include "tests/plain/plain_section.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cmath>

namespace velmora::bench {
namespace {

using Block = std::array<double, kBlock>;

constexpr int kGlideBlocks = 41; // a glide lasts 41 blocks and a bit

Block tone()
{
    Block x{};
    for (int i = 0; i < kBlock; ++i) x[static_cast<unsigned>(i)] = std::sin(0.13 * i);
    return x;
}

/// The unit that figures of the rack are given in: one second-order section, five products and four sums,
/// history in locals, without any guard. Eight in series, section by section.
void yardstick(benchmark::State& run)
{
    struct Section {
        BiquadCoefficients c;
        double x1 = 0.0, x2 = 0.0, y1 = 0.0, y2 = 0.0;
    };
    constexpr int kSections = 8;
    const BiquadCoefficients bell = designBiquad({StripBiquadKind::Peaking, 1000.0, 1.0, 0.5, 44100.0});
    std::array<Section, kSections> sections;
    for (Section& section : sections) section.c = bell;
    const Block input = tone();
    Block block{};
    for (auto _ : run) {
        block = input;
        benchmark::DoNotOptimize(block);
        for (Section& section : sections) {
            auto [c, x1, x2, y1, y2] = section;
            for (double& x : block) {
                const double y = c.b0 * x + c.b1 * x1 + c.b2 * x2 - c.a1 * y1 - c.a2 * y2;
                x2 = x1;
                x1 = x;
                y2 = y1;
                y1 = y;
                x = y;
            }
            section = {c, x1, x2, y1, y2};
        }
        benchmark::DoNotOptimize(block);
    }
    reportPerSample(run, kBlock * kSections);
}
BENCHMARK(yardstick)->Name("yardstick");

enum class State { Steady, Gliding, Limited };

template <typename Section, State state>
void section(benchmark::State& run)
{
    Section biquad;
    biquad.setEnabled(true);
    biquad.setDesign(StripBiquadKind::Peaking, 1000.0, 1.0, 6.0);
    biquad.setSoftLimit(state == State::Limited);
    biquad.resetState();
    const Block input = tone();
    Block block{};
    int blocks = 0;
    for (auto _ : run) {
        if (state == State::Gliding && blocks++ % kGlideBlocks == 0)
            biquad.setFrequency(blocks % 2 == 0 ? 300.0 : 3000.0);
        block = input;
        benchmark::DoNotOptimize(block);
        biquad.runBlock(block.data(), kBlock);
        benchmark::DoNotOptimize(block);
    }
    reportPerSample(run, kBlock);
}
BENCHMARK(section<plain::Section, State::Steady>)->Name("section/plain");
BENCHMARK(section<StripBiquad, State::Steady>)->Name("section/fast");
BENCHMARK(section<plain::Section, State::Gliding>)->Name("section gliding/plain");
BENCHMARK(section<StripBiquad, State::Gliding>)->Name("section gliding/fast");
BENCHMARK(section<plain::Section, State::Limited>)->Name("section limited/plain");
BENCHMARK(section<StripBiquad, State::Limited>)->Name("section limited/fast");

/// As a host loads a preset: every setting is written, then a block runs.
template <typename Section>
void presetLoad(benchmark::State& run)
{
    Section biquad;
    biquad.setEnabled(true);
    Block block{};
    double hz = 100.0;
    for (auto _ : run) {
        hz = hz > 10000.0 ? 100.0 : hz * 1.01;
        biquad.setKind(static_cast<int>(StripBiquadKind::Peaking));
        biquad.setFrequency(hz);
        biquad.setQ(1.0);
        biquad.setGainDb(6.0);
        biquad.runBlock(block.data(), 1);
        benchmark::DoNotOptimize(block);
    }
}
BENCHMARK(presetLoad<plain::Section>)->Name("section setters/plain");
BENCHMARK(presetLoad<StripBiquad>)->Name("section setters/fast");

} // namespace
} // namespace velmora::bench
