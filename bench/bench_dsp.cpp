#include "bench/module_bench.h"
#include "dsp/level_meter.h"
#include "dsp/strip_biquad.h"
#include "tests/plain/level_detector.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cmath>

namespace velmora::bench {
namespace {

constexpr int kGlideBlocks = 41; // a glide lasts 41 blocks and a bit

enum class State { Idle, Gliding };
enum class Form { Sample, Block };

std::array<double, kBlock> tone()
{
    std::array<double, kBlock> x{};
    for (int i = 0; i < kBlock; ++i) x[static_cast<unsigned>(i)] = std::sin(0.13 * i);
    return x;
}

StripBiquad peaking()
{
    StripBiquad section(StripBiquadKind::Peaking, 1000.0, 1.0, 6.0);
    section.setEnabled(true);
    section.setQ(1.0);
    section.resetState();
    return section;
}

// One redesign per glide: its share is some 0.1 ns per sample.
template <State state, Form form>
void section(benchmark::State& run)
{
    const std::array<double, kBlock> input = tone();
    StripBiquad biquad = peaking();
    std::array<double, kBlock> block{};
    int blocks = 0;
    for (auto _ : run) {
        if (state == State::Gliding && blocks++ % kGlideBlocks == 0)
            biquad.setFrequency(blocks % 2 == 0 ? 300.0 : 3000.0);
        block = input;
        if (form == Form::Block)
            biquad.runBlock(block.data(), kBlock);
        else
            for (double& x : block) x = biquad.runSample(x);
        benchmark::DoNotOptimize(block);
    }
    reportPerSample(run, kBlock);
}
BENCHMARK(section<State::Idle, Form::Sample>);
BENCHMARK(section<State::Idle, Form::Block>);
BENCHMARK(section<State::Gliding, Form::Sample>);
BENCHMARK(section<State::Gliding, Form::Block>);

void softLimitedSection(benchmark::State& run)
{
    const std::array<double, kBlock> input = tone();
    StripBiquad biquad = peaking();
    biquad.setSoftLimit(true);
    std::array<double, kBlock> block{};
    for (auto _ : run) {
        block = input;
        biquad.runBlock(block.data(), kBlock);
        benchmark::DoNotOptimize(block);
    }
    reportPerSample(run, kBlock);
}
BENCHMARK(softLimitedSection);

/// A setter and what it asks for: design, roots and increments.
void redesign(benchmark::State& run)
{
    StripBiquad biquad = peaking();
    biquad.setKind(static_cast<int>(run.range(0)));
    double hz = 100.0;
    for (auto _ : run) {
        hz = hz > 10000.0 ? 100.0 : hz * 1.01;
        biquad.setFrequency(hz);
        benchmark::DoNotOptimize(biquad.glide().samplesLeft()); // asks for the design
    }
}
BENCHMARK(redesign)->ArgName("kind")->DenseRange(1, 10);

template <typename Follow>
void levelDetector(benchmark::State& run, Follow follow)
{
    const std::array<double, kBlock> input = tone();
    const LevelRates rates = levelMeterRates(48000.0);
    LevelDetector detector;
    const auto frames = static_cast<int>(run.range(0));
    for (auto _ : run) {
        follow(detector, input.data(), frames, rates);
        benchmark::DoNotOptimize(detector);
    }
    reportPerSample(run, frames);
}
void levelDetectorPlain(benchmark::State& run)
{
    levelDetector(run, plain::followBlock);
}
void levelDetectorFast(benchmark::State& run)
{
    levelDetector(run, [](LevelDetector& detector, const double* x, std::int32_t frames,
                          const LevelRates& rates) { detector.processBlock(x, frames, rates); });
}

/// Two that stand and hear differently; per sample of either.
void levelDetectorPair(benchmark::State& run)
{
    std::array<double, kBlock> other = tone();
    for (double& x : other) x *= 0.5;
    LevelDetector second;
    levelDetector(
        run, [&](LevelDetector& detector, const double* x, std::int32_t frames, const LevelRates& rates) {
            LevelDetector::processBlocks(detector, x, second, other.data(), frames, rates);
        });
}
BENCHMARK(levelDetectorPlain)->Name("LevelDetector/plain")->Arg(16)->Arg(64);
BENCHMARK(levelDetectorFast)->Name("LevelDetector/fast")->Arg(16)->Arg(64);
BENCHMARK(levelDetectorPair)->Name("LevelDetector/pair")->Arg(16)->Arg(64);

} // namespace
} // namespace velmora::bench
