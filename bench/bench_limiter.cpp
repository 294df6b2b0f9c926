#include "bench/module_bench.h"
#include "modules/limiter/strip_effect_limiter.h"
#include "tests/plain/limiter.h"

#include <string>

namespace velmora {
namespace {

using namespace limiter;

constexpr std::uint32_t kWindow = 192;

void set(StripEffectLimiter& module, ParameterId offset, double value)
{
    module.setParameter(kWindow + static_cast<std::uint32_t>(offset), value);
}

// Arguments: type, soft, mode of the brick wall or shape of the saturator.
void prepare(StripEffectLimiter& module, const benchmark::State& state)
{
    module.loadDefaults();
    set(module, kTypeOffset, static_cast<double>(state.range(0)) / 15.0);
    set(module, kSoftOffset, static_cast<double>(state.range(1)));
    set(module, state.range(0) == kBrickWall ? kModeOffset : kShapeOffset,
        static_cast<double>(state.range(2)) / 10.0);
    set(module, kCeilingOffset, 0.6); // -10 dB: the tones stay above the ceiling
    set(module, kHighPassOffset, 0.5);
    module.reset();
}

void Steady(benchmark::State& state)
{
    StripEffectLimiter module(kWindow, 383, 633);
    prepare(module, state);
    bench::runModule(state, module);
}

// Ceiling and the sections' frequency move in each block.
void Gliding(benchmark::State& state)
{
    StripEffectLimiter module(kWindow, 383, 633);
    prepare(module, state);
    double phase = 0.0;
    bench::runModule(state, module, [&] {
        phase = phase < 1.0 ? phase + 0.001 : 0.0;
        set(module, kCeilingOffset, 0.5 + 0.2 * phase);
        set(module, kHighPassOffset, 0.3 + 0.4 * phase);
    });
}

void variants(benchmark::internal::Benchmark* bench)
{
    bench->ArgNames({"type", "soft", "choice"});
    for (int soft : {0, 1}) {
        bench->Args({kOpto, soft, 0});
        bench->Args({kVca, soft, 0});
        for (int mode : {0, 1, 2}) bench->Args({kBrickWall, soft, mode});
        for (int shape = 0; shape <= kLastSaturatorShape; ++shape) bench->Args({kSaturator, soft, shape});
    }
}

BENCHMARK(Steady)->Apply(variants);
BENCHMARK(Gliding)->Apply(variants);

constexpr double kLevel = 0.6; // ceiling of -10 dB: the tones stay above it

/// The same settings for the module and for its plain form.
struct Kernel {
    const char* name;
    std::int32_t type;
    int soft;
    int choice; ///< mode or shape

    template <typename Set>
    void prepare(Set set) const
    {
        set(kAttackOffset, 0.5);
        set(kReleaseOffset, 0.5);
        set(kSmoothOffset, 0.5);
        set(kOutputOffset, 0.5);
        set(kCeilingOffset, kLevel);
        set(kHighPassOffset, 0.5);
        set(kSoftOffset, soft);
        set(type == kBrickWall ? kModeOffset : kShapeOffset, choice / 10.0);
    }
};

constexpr Kernel kKernels[] = {
    {"LimiterOptoHard", kOpto, 0, 0},
    {"LimiterOptoSoft", kOpto, 1, 0},
    {"LimiterVcaHard", kVca, 0, 0},
    {"LimiterVcaSoft", kVca, 1, 0},
    {"LimiterBrickWallSquareHard", kBrickWall, 0, 0},
    {"LimiterBrickWallSingleHard", kBrickWall, 0, 1},
    {"LimiterBrickWallCascadeHard", kBrickWall, 0, 2},
    {"LimiterBrickWallSquareSoft", kBrickWall, 1, 0},
    {"LimiterBrickWallSingleSoft", kBrickWall, 1, 1},
    {"LimiterBrickWallCascadeSoft", kBrickWall, 1, 2},
    {"LimiterSaturatorValve1", kSaturator, 0, 0},
    {"LimiterSaturatorValve2", kSaturator, 0, 1},
    {"LimiterSaturatorTape1", kSaturator, 0, 2},
    {"LimiterSaturatorTape2", kSaturator, 0, 3},
    {"LimiterSaturatorSoftClip", kSaturator, 0, 4},
    {"LimiterSaturatorHardClip", kSaturator, 0, 5},
};

void Plain(benchmark::State& state, Kernel kernel)
{
    plain::Limiter form(kernel.type, 44100.0);
    kernel.prepare([&](ParameterId offset, double value) { form.set(offset, value); });
    form.reset();
    bench::ModuleBuffers buffers;
    for (auto _ : state) {
        buffers.refill();
        form.process(buffers.record.channels[0], buffers.record.channels[2], bench::kBlock);
        benchmark::DoNotOptimize(buffers.record.channels[0][0]);
    }
    bench::reportPerSample(state, bench::kBlock);
}

void Fast(benchmark::State& state, Kernel kernel)
{
    StripEffectLimiter module(kWindow, 383, 633);
    set(module, kTypeOffset, kernel.type / 15.0);
    kernel.prepare([&](ParameterId offset, double value) { set(module, offset, value); });
    module.reset();
    bench::runModule(state, module);
}

const bool registered = [] {
    for (const Kernel& kernel : kKernels) {
        const std::string name = kernel.name;
        benchmark::RegisterBenchmark((name + "/plain").c_str(), Plain, kernel);
        benchmark::RegisterBenchmark((name + "/fast").c_str(), Fast, kernel);
    }
    return true;
}();

} // namespace
} // namespace velmora
