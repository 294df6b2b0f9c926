#include "bench/module_bench.h"
#include "dsp/section_chains.h"
#include "modules/filters/filter_rail.h"
#include "tests/plain/section_chains.h"

#include <vector>

namespace velmora::bench {
namespace {

enum class Form { Plain, Fast };

constexpr int kGlideSamples = 2646;

StripBiquad peaking(double hz)
{
    StripBiquad section(StripBiquadKind::Peaking, hz, 1.0, 6.0);
    section.setEnabled(true);
    section.setFrequency(hz);
    section.resetState();
    return section;
}

/// Time of chains of the given lengths on one input. @param glides all sections all the time
void chains(benchmark::State& state, Form form, const std::vector<std::size_t>& lengths, std::int32_t frames,
            bool glides)
{
    std::vector<StripBiquad> sections;
    std::vector<std::vector<double>> outputs(lengths.size(), std::vector<double>(kBlock));
    for (std::size_t length : lengths)
        while (length-- > 0) sections.push_back(peaking(100.0 * static_cast<double>(sections.size() + 1)));
    std::vector<BiquadLink> links;
    for (StripBiquad& section : sections) links.push_back({&section});
    std::vector<double> input(static_cast<std::size_t>(frames));
    for (std::size_t n = 0; n < input.size(); ++n) input[n] = std::sin(0.13 * static_cast<double>(n));
    std::vector<BiquadChain> all;
    std::size_t first = 0;
    for (std::size_t c = 0; c < lengths.size(); ++c) {
        links[first + lengths[c] - 1].output = outputs[c].data();
        all.push_back({input.data(), std::span(links).subspan(first, lengths[c])});
        first += lengths[c];
    }
    int left = 0;
    for (auto _ : state) {
        if (glides && (left -= frames) < 0) {
            left = kGlideSamples;
            for (StripBiquad& section : sections) section.setFrequency(section.frequency() * 1.01);
        }
        if (form == Form::Fast)
            runChains(all, frames);
        else
            plain::runChains<StripBiquad>(all, frames);
        benchmark::DoNotOptimize(outputs[0].data());
    }
    reportPerSample(state, frames);
}

/// Five filters of a rail.
void rail(benchmark::State& state, Form form, std::int32_t frames)
{
    FilterRail filters;
    filters.setSampleRate(48000.0);
    filters.setHighPassFrequency(80.0);
    filters.setLowPassFrequency(12000.0, 48000.0);
    filters.setHighPass(true, 2);
    filters.setLowPass(true, 2);
    filters.band().setEnabled(true);
    filters.reset();
    std::vector<double> block(static_cast<std::size_t>(frames));
    FilterRail::Links links;
    const SectionChain<StripFilterSection> chain = filters.chain(true, block.data(), links);
    for (auto _ : state) {
        for (std::size_t n = 0; n < block.size(); ++n) block[n] = 0.1 * static_cast<double>(n % 7);
        if (form == Form::Fast)
            runRails({&chain, 1}, frames);
        else
            plain::runChains<StripFilterSection>({&chain, 1}, frames);
        benchmark::DoNotOptimize(block.data());
    }
    reportPerSample(state, frames);
}

const auto kRegistered = [] {
    const std::vector<std::vector<std::size_t>> layouts{{2},  {4},    {8},
                                                        {18}, {4, 2}, {1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1}};
    const auto add = [](const std::string& name, auto run) {
        for (Form form : {Form::Plain, Form::Fast})
            for (std::int32_t frames : {16, 64})
                benchmark::RegisterBenchmark(
                    (name + "/" + std::to_string(frames) + (form == Form::Fast ? "/fast" : "/plain")).c_str(),
                    [=](benchmark::State& state) { run(state, form, frames); });
    };
    for (const auto& lengths : layouts) {
        const std::string name = lengths.size() > 2    ? "ParallelSections" + std::to_string(lengths.size())
                                 : lengths.size() == 2 ? std::string("SectionTree")
                                                       : "SectionChain" + std::to_string(lengths[0]);
        for (bool glides : {false, true})
            add((glides ? "Gliding" : "") + name,
                [=](benchmark::State& state, Form form, std::int32_t frames) {
                    chains(state, form, lengths, frames, glides);
                });
    }
    add("FilterRail", rail);
    return true;
}();

} // namespace
} // namespace velmora::bench
