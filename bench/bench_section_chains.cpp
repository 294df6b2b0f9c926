#include "bench/module_bench.h"
#include "dsp/section_chains.h"
#include "tests/plain/section_chains.h"

#include <vector>

namespace velmora::bench {
namespace {

enum class Form { Plain, Fast };
enum class Motion { Steady, Gliding };

constexpr int kGlideSamples = 2646;

/// Time of a chain by number of sections and block length.
template <Form form, Motion motion>
void chain(benchmark::State& state)
{
    const auto count = static_cast<std::size_t>(state.range(0));
    const auto frames = static_cast<std::int32_t>(state.range(1));
    std::vector<StripBiquad> sections(count, StripBiquad(StripBiquadKind::Peaking, 1000.0, 1.0, 6.0));
    std::vector<BiquadLink> links;
    double hz = 100.0;
    for (StripBiquad& section : sections) {
        section.setEnabled(true);
        section.setFrequency(hz *= 1.3);
        section.resetState();
        links.push_back({&section});
    }
    std::vector<double> block(static_cast<std::size_t>(frames));
    links.back().output = block.data();
    const BiquadChain all{block.data(), links};
    int left = 0;
    for (auto _ : state) {
        for (std::size_t n = 0; n < block.size(); ++n) block[n] = 0.1 * static_cast<double>(n % 7);
        if (motion == Motion::Gliding && (left -= frames) < 0) {
            left = kGlideSamples;
            for (StripBiquad& section : sections) section.setFrequency(section.frequency() * 1.01);
        }
        if constexpr (form == Form::Fast)
            runChains({&all, 1}, frames);
        else
            plain::runChains({&all, 1}, frames);
        benchmark::DoNotOptimize(block.data());
    }
    reportPerSample(state, frames);
}
void sizes(benchmark::internal::Benchmark* b)
{
    b->ArgNames({"sections", "frames"})->ArgsProduct({{2, 4, 8, 12, 18}, {16, 64, 256}});
}
BENCHMARK(chain<Form::Plain, Motion::Steady>)->Name("SectionChain/plain")->Apply(sizes);
BENCHMARK(chain<Form::Fast, Motion::Steady>)->Name("SectionChain/fast")->Apply(sizes);
BENCHMARK(chain<Form::Plain, Motion::Gliding>)->Name("GlidingSectionChain/plain")->Apply(sizes);
BENCHMARK(chain<Form::Fast, Motion::Gliding>)->Name("GlidingSectionChain/fast")->Apply(sizes);

} // namespace
} // namespace velmora::bench
