#include "bench/module_bench.h"
#include "dsp/run_widest.h"
#include "dsp/vector_math.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cmath>

namespace velmora::bench {
namespace {

using Values = std::array<double, kBlock>;

/// Levels from 0.003 to some 10, as detectors see them.
Values levels()
{
    Values x{};
    for (int i = 0; i < kBlock; ++i) x[static_cast<unsigned>(i)] = 0.003 * std::pow(1.137, i);
    return x;
}

template <typename Function>
void perValue(benchmark::State& run, Function function)
{
    Values in = levels();
    Values out{};
    for (auto _ : run) {
        benchmark::DoNotOptimize(in);
        function(in, out);
        benchmark::DoNotOptimize(out);
    }
    reportPerSample(run, kBlock);
}

#define VELMORA_BENCH(label, LIBM, LANES)                                                                    \
    BENCHMARK_CAPTURE(perValue, label, [](const Values& in, Values& out) {                                   \
        for (unsigned i = 0; i < kBlock; ++i) {                                                              \
            const double x = in[i];                                                                          \
            out[i] = LIBM;                                                                                   \
        }                                                                                                    \
    })->Name(label "/libm");                                                                                 \
    BENCHMARK_CAPTURE(perValue, label, [](const Values& in, Values& out) {                                   \
        runWidest([&](auto width) VELMORA_KERNEL_LAMBDA {                                                    \
            using V = Lanes<width>;                                                                          \
            mapLanes<V>(in.data(), out.data(), kBlock,                                                       \
                        [](const V& x) VELMORA_KERNEL_LAMBDA { return LANES; });                             \
        });                                                                                                  \
    })->Name(label "/lanes")

VELMORA_BENCH("exp", std::exp(x), expLanes<V>(x));
VELMORA_BENCH("exp10", std::pow(10.0, x), exp10Lanes<V>(x));
VELMORA_BENCH("log", std::log(x), logLanes<V>(x));
VELMORA_BENCH("log10", std::log10(x), log10Lanes<V>(x));
VELMORA_BENCH("pow", std::pow(x, 1.5157), powLanes<V>(x, allLanes<V>(1.5157)));
VELMORA_BENCH("tanh", std::tanh(x), tanhLanes<V>(x));
VELMORA_BENCH("atan", std::atan(x), atanLanes<V>(x));
VELMORA_BENCH("sqrt", std::sqrt(x), sqrtLanes<V>(x));

} // namespace
} // namespace velmora::bench
