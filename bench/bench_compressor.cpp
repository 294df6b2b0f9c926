#include "bench/module_bench.h"
#include "modules/compressor/strip_effect_compressor.h"

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

} // namespace
} // namespace velmora::bench
