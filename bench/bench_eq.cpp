#include "bench/module_bench.h"
#include "modules/eq/juniper_filter.h"
#include "modules/eq/sorrel_filter.h"
#include "modules/eq/strip_effect_eq.h"
#include "modules/eq/tamarin_filter.h"
#include "tests/plain/eq_filters.h"

#include <string>

namespace velmora::bench {
namespace {

constexpr std::uint32_t kBase = 144;
constexpr std::uint32_t kFirstGain = kBase + 17;
constexpr std::uint32_t kAnalog = kBase + 33;

void setUp(StripEffectEq& eq, EqFlavour flavour, bool analog)
{
    eq.setSampleRate(48000.0);
    eq.setParameter(kBase, static_cast<int>(flavour) / 15.0);
    for (std::uint32_t band = 0; band < kEqBands; ++band) {
        eq.setParameter(kBase + 16 + 4 * band, 1.0);
        eq.setParameter(kFirstGain + 4 * band, band % 2 == 0 ? 0.7 : 0.35);
        eq.setParameter(kBase + 18 + 4 * band, 0.5);
    }
    eq.setParameter(kAnalog, analog ? 1.0 : 0.0);
    eq.reset();
}

void steady(benchmark::State& state, EqFlavour flavour, bool analog)
{
    StripEffectEq eq(kBase, 379, 594);
    setUp(eq, flavour, analog);
    runModule(state, eq);
}

// One gain moves in each block; all four bands keep gliding.
void gliding(benchmark::State& state, EqFlavour flavour)
{
    StripEffectEq eq(kBase, 379, 594);
    setUp(eq, flavour, true);
    unsigned turn = 0;
    runModule(state, eq, [&] {
        eq.setParameter(kFirstGain + 4 * (turn % 4), 0.3 + 0.1 * (turn / 4 % 5));
        ++turn;
    });
}

// All parameters of a preset, then a block.
void preset(benchmark::State& state, EqFlavour flavour)
{
    StripEffectEq eq(kBase, 379, 594);
    unsigned turn = 0;
    runModule(state, eq, [&] {
        eq.setParameter(kBase, static_cast<int>(flavour) / 15.0);
        for (std::uint32_t r = 16; r < 34; ++r) eq.setParameter(kBase + r, (r + turn) % 7 / 7.0);
        ++turn;
    });
}

BENCHMARK_CAPTURE(steady, sorrel_clean, EqFlavour::Sorrel, false);
BENCHMARK_CAPTURE(steady, tamarin_clean, EqFlavour::Tamarin, false);
BENCHMARK_CAPTURE(steady, juniper_clean, EqFlavour::Juniper, false);
BENCHMARK_CAPTURE(steady, sorrel_analog, EqFlavour::Sorrel, true);
BENCHMARK_CAPTURE(steady, tamarin_analog, EqFlavour::Tamarin, true);
BENCHMARK_CAPTURE(steady, juniper_analog, EqFlavour::Juniper, true);
BENCHMARK_CAPTURE(gliding, sorrel, EqFlavour::Sorrel);
BENCHMARK_CAPTURE(gliding, tamarin, EqFlavour::Tamarin);
BENCHMARK_CAPTURE(gliding, juniper, EqFlavour::Juniper);
BENCHMARK_CAPTURE(preset, tamarin, EqFlavour::Tamarin);

// A filter alone, all bands faded in. A glide is started anew before it ends; design isn't counted.
template <typename Filter>
void filter(benchmark::State& state, bool analog, bool glides, std::int32_t frames)
{
    constexpr std::int32_t kGlideSamples = 2048;
    Filter filter;
    filter.setSampleRate(48000.0);
    const auto design = [&](double gainDb) {
        for (EqBand band : kAllEqBands)
            filter.setBand(band,
                           {1, 8000.0 / std::pow(5.0, static_cast<double>(band)), gainDb, EqWidth::Normal});
    };
    for (EqBand band : kAllEqBands) filter.enableBand(band);
    design(6.0);
    filter.setAnalog(analog);
    filter.reset();
    if (glides) design(3.0);

    ModuleBuffers buffers;
    EqPiece piece;
    piece.frames = frames;
    piece.input = buffers.record.channels[0];
    piece.mix[0].fill(1.0);
    piece.gain[0] = 1.0;
    piece.follower.rate = 0.3;
    std::int32_t samples = 0;
    unsigned turn = 0;
    for (auto _ : state) {
        if (glides && (samples += frames) >= kGlideSamples) {
            state.PauseTiming();
            samples = 0;
            design(++turn % 2 == 0 ? 3.0 : 6.0);
            state.ResumeTiming();
        }
        filter.process(piece, 0.01);
        benchmark::DoNotOptimize(piece.output[0]);
    }
    reportPerSample(state, frames);
}

template <typename Plain, typename Fast>
void compare(const std::string& name)
{
    for (bool glides : {false, true}) {
        for (bool analog : {false, true}) {
            for (std::int32_t frames : {16, 64}) {
                const std::string kernel =
                    name + (analog ? "Analog" : "Clean") + (glides ? "Gliding" : "") + std::to_string(frames);
                const auto add = [&](const char* form, auto run) {
                    benchmark::RegisterBenchmark((kernel + form).c_str(), run, analog, glides, frames);
                };
                add("/plain", filter<Plain>);
                add("/fast", filter<Fast>);
            }
        }
    }
}

const bool registered = [] {
    compare<plain::SorrelFilter, SorrelFilter>("EqSorrel");
    compare<plain::TamarinFilter, TamarinFilter>("EqTamarin");
    compare<plain::JuniperFilter, JuniperFilter>("EqJuniper");
    return true;
}();

} // namespace
} // namespace velmora::bench
