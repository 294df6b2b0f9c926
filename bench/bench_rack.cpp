#include "bench/module_bench.h"
#include "params/parameter_ids.h"
#include "tools/host/loaded_plugin.h"
#include "tools/host/private_home.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

/// The whole strip as a host runs it: the built plug-in, or the one that the environment's VELMORA_PLUGIN
/// names, so that two builds can be compared by the same program.
namespace velmora::bench {
namespace {

using Settings = std::vector<std::pair<ParameterId, double>>;

constexpr ParameterId typeId(Role role)
{
    return roleWindow(role).windowBase + kTypeOffset;
}

/// Every role passes through, and the inserts are empty.
Settings emptyRack()
{
    Settings settings;
    for (const RoleWindow& window : kRoleWindows) settings.emplace_back(typeId(window.role), 0.0);
    return settings;
}

enum class Noise { Default, AutoMute }; // of the preamps

/// The heaviest variant of every role at work (as bench_modules shows them), and the heaviest of all, the Pre
/// 60s, in both inserts. Settings are those that cost most when each parameter was tried by itself, but for
/// the preamps' noise.
Settings heaviestRack(Noise noise)
{
    constexpr double kVariants = 15.0; // of a fixed role's Type
    constexpr double kOn = 1.0, kSteepest = 1.0, kAutoMute = 0.5;
    struct Row {
        Role role;
        double type;
        std::vector<std::pair<ParameterId, double>> own; // offset in the window, value
    };
    const double pre60s = 2 / 255.0;
    std::vector<std::pair<ParameterId, double>> preamp;
    if (noise == Noise::AutoMute) preamp.emplace_back(25, kAutoMute);
    Settings settings;
    for (const auto& [role, type, own] : {
             Row{Role::Input, 2 / kVariants, preamp},
             Row{Role::Filters, 3 / kVariants, {{18, kSteepest}, {26, kSteepest}}},
             Row{Role::Expander, 1 / kVariants, {{20, 1.0}, {23, kOn}, {25, kOn}}}, // expands, key filters in
             Row{Role::Compressor, 3 / kVariants, {{kSideChainOffset, kOn}, {18, 0.0}}}, // lowest threshold
             Row{Role::Eq, 3 / kVariants, {}},
             Row{Role::Limiter, 12 / kVariants, {{29, 0.5}}}, // a shape with a curve
             Row{Role::Output, 1 / kVariants, {}},
             Row{Role::InsertX, pre60s, preamp},
             Row{Role::InsertY, pre60s, preamp},
         }) {
        settings.emplace_back(typeId(role), type);
        for (const auto& [offset, value] : own)
            settings.emplace_back(roleWindow(role).windowBase + offset, value);
    }
    return settings;
}

const host::PluginLibrary& pluginLibrary()
{
    static const host::PrivateHome home;
    static const char* const named = std::getenv("VELMORA_PLUGIN");
    static const host::PluginLibrary library(named != nullptr ? named : VELMORA_PLUGIN_PATH);
    return library;
}

/// Programme that keeps level-dependent modules at work: two tones whose level swells, and a little beating
/// key.
template <typename Sample>
struct HostBuffers {
    static constexpr std::size_t kLength = 1 << 15;

    HostBuffers() : main(kLength), key(kLength), left(kLength), right(kLength)
    {
        for (std::size_t i = 0; i < kLength; ++i) {
            const auto t = static_cast<double>(i);
            const double swell = 0.55 + 0.45 * std::sin(0.0004 * t);
            main[i] = static_cast<Sample>(swell * (0.4 * std::sin(0.031 * t) + 0.3 * std::sin(0.41 * t)));
            key[i] = static_cast<Sample>(0.3 * std::sin(0.02 * t));
        }
    }

    std::vector<Sample> main, key, left, right;
};

template <typename Sample>
void runRack(benchmark::State& state, const Settings& settings, std::int32_t frames, double rate)
{
    host::LoadedPlugin plugin(pluginLibrary());
    plugin.start({rate, frames, sizeof(Sample) == sizeof(double)});
    for (const auto& [id, value] : settings) plugin.setParameter(id, static_cast<float>(value));
    HostBuffers<Sample> host;
    std::size_t at = 0;
    const auto runBlock = [&] {
        Sample* in[4] = {&host.main[at], &host.main[at], &host.key[at], &host.key[at]};
        Sample* out[2] = {&host.left[at], &host.right[at]};
        plugin.process(in, out, frames);
        at = (at + static_cast<std::size_t>(frames)) % HostBuffers<Sample>::kLength;
    };
    for (int settled = 0; settled < rate * 0.25; settled += frames) runBlock(); // glides have arrived
    for (auto _ : state) runBlock();
    reportPerSample(state, frames);
}

/// The unit of cost: one second-order section in its plainest form.
void yardstick(benchmark::State& state)
{
    const double b0 = 0.3, b1 = 0.2, b2 = 0.1, a1 = -0.9, a2 = 0.4;
    std::array<double, kBlock> input{};
    std::array<double, kBlock> output{};
    for (int i = 0; i < kBlock; ++i) input[static_cast<unsigned>(i)] = std::sin(0.13 * i);
    double x1 = 0.0, x2 = 0.0, y1 = 0.0, y2 = 0.0;
    for (auto _ : state) {
        for (unsigned i = 0; i < kBlock; ++i) {
            const double x = input[i];
            const double y = b0 * x + b1 * x1 + b2 * x2 - a1 * y1 - a2 * y2;
            x2 = std::exchange(x1, x);
            y2 = std::exchange(y1, y);
            output[i] = y;
        }
        benchmark::DoNotOptimize(output);
    }
    reportPerSample(state, kBlock);
}
BENCHMARK(yardstick);

void registerRack(const std::string& name, const Settings& settings, std::int32_t frames, int rate)
{
    const std::string place = "/block:" + std::to_string(frames) + "/rate:" + std::to_string(rate);
    benchmark::RegisterBenchmark(("rack/" + name + "/float" + place).c_str(), runRack<float>, settings,
                                 frames, rate);
    benchmark::RegisterBenchmark(("rack/" + name + "/double" + place).c_str(), runRack<double>, settings,
                                 frames, rate);
}

const bool registered = [] {
    constexpr std::int32_t kFrames = 256;
    constexpr int kRate = 48000;
    for (const auto& [name, settings] : {std::pair{"empty", emptyRack()}, std::pair{"preset0", Settings{}},
                                         std::pair{"heaviest", heaviestRack(Noise::Default)},
                                         std::pair{"heaviest_muted", heaviestRack(Noise::AutoMute)}}) {
        for (const std::int32_t frames : {16, 64, kFrames, 1024}) registerRack(name, settings, frames, kRate);
        for (const int rate : {44100, 88200, 96000, 176400, 192000, 384000})
            registerRack(name, settings, kFrames, rate);
    }
    return true;
}();

} // namespace
} // namespace velmora::bench
