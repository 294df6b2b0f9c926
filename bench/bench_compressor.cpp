#include "bench/module_bench.h"
#include "modules/compressor/strip_effect_compressor.h"
#include "tests/plain/compressor.h"

namespace velmora::bench {
namespace {

constexpr std::uint32_t kWindow = 112;
constexpr std::uint32_t kAttack = kWindow + 16;
constexpr std::uint32_t kThreshold = kWindow + 18;
constexpr std::uint32_t kRatio = kWindow + 19;

// Loud enough to keep the detector working: -30 dB threshold under a signal around -6 dB.
class Rig {
public:
    explicit Rig(std::int64_t variant) : module(kWindow, 375, 555)
    {
        module.setParameter(kWindow, static_cast<double>(variant) / 15.0);
        module.loadDefaults();
        module.setParameter(kThreshold, 0.2);
        module.reset();
    }

    StripEffectCompressor module;
};

void compressorSteady(benchmark::State& state)
{
    Rig rig(state.range(0));
    runModule(state, rig.module);
}
BENCHMARK(compressorSteady)->ArgName("variant")->DenseRange(0, 3);

// Attack and ratio move on every block, so the block's coefficients are worked out each time.
void compressorGliding(benchmark::State& state)
{
    Rig rig(state.range(0));
    double value = 0.2;
    runModule(state, rig.module, [&] {
        value = value > 0.9 ? 0.2 : value + 0.001;
        rig.module.setParameter(kAttack, value);
        rig.module.setParameter(kRatio, value);
    });
}
BENCHMARK(compressorGliding)->ArgName("variant")->DenseRange(1, 3);

// The whole module against the way from key to output sample by sample, without meters.
template <int variant>
void plainForm(benchmark::State& state)
{
    plain::Compressor compressor(variant, {0.5, 0.5, 0.2, 0.5, 1.0, 0.0, 0.0}, 44100.0);
    ModuleBuffers buffers;
    for (auto _ : state) {
        buffers.refill();
        double* x = buffers.record.left(0);
        for (int i = 0; i < kBlock; ++i) x[i] = compressor.process(x[i], x[i]);
        benchmark::DoNotOptimize(x[0]);
    }
    reportPerSample(state, kBlock);
}
template <int variant>
void fastForm(benchmark::State& state)
{
    Rig rig(variant);
    runModule(state, rig.module);
}
BENCHMARK(plainForm<1>)->Name("CompressorOpto/plain");
BENCHMARK(fastForm<1>)->Name("CompressorOpto/fast");
BENCHMARK(plainForm<2>)->Name("CompressorFet/plain");
BENCHMARK(fastForm<2>)->Name("CompressorFet/fast");
BENCHMARK(plainForm<3>)->Name("CompressorVca/plain");
BENCHMARK(fastForm<3>)->Name("CompressorVca/fast");

} // namespace
} // namespace velmora::bench
