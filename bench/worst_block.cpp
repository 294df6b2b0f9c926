// The slowest block beside the ordinary one: what a swap, a reorder or a preset of 192 values costs the block
// that has to take it over. Each sequence is run many times and the fastest time of each block counts, so
// that what the rest of the machine does falls out.

#include "params/catalogue.h"
#include "params/type_codes.h"
#include "presets/preset_library.h"
#include "tools/host/loaded_plugin.h"
#include "tools/host/private_home.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <functional>
#include <limits>
#include <string>
#include <vector>

namespace velmora::bench {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int kFrames = 64;
constexpr int kBlocks = 520;
constexpr int kWarmBlocks = 40; ///< in front of the first event
constexpr int kRepeats = 15;
constexpr int kEventEvery = 20; ///< blocks, so that the costs of a glide show as well
constexpr std::int32_t kInsertTypes[] = {256, 304};
constexpr std::int32_t kPositions[] = {17, 49, 81, 113, 145, 193, 225, 257, 305};
constexpr int kFactoryPresets = 233;

using Event = std::function<void(host::LoadedPlugin&, int)>;

void swapInserts(host::LoadedPlugin& plugin, int turn)
{
    const auto types = moduleTypes();
    for (const std::int32_t id : kInsertTypes)
        plugin.setParameter(id, static_cast<float>(types[static_cast<unsigned>(turn) % types.size()].code) /
                                    255.0f);
}

void reorder(host::LoadedPlugin& plugin, int turn)
{
    plugin.setParameter(kPositions[turn % 9], static_cast<float>((turn * 5 + 3) % 9) / 8.0f);
}

void loadPreset(host::LoadedPlugin& plugin, int turn)
{
    const Preset preset = makeFactoryPreset(static_cast<std::uint32_t>(turn * 37 % kFactoryPresets));
    for (ParameterId id = 0; id < kHostParameterCount; ++id)
        if (isStored(id)) plugin.setParameter(id, preset.values[static_cast<std::size_t>(id)]);
}

void turnEveryKnob(host::LoadedPlugin& plugin, int turn)
{
    for (ParameterId id = 1; id < kHostParameterCount; ++id)
        if (isStored(id) && windowOf(id) != nullptr && id - windowOf(id)->windowBase >= kOwnOffset)
            plugin.setParameter(id, static_cast<float>((id * 7 + turn * 13) % 101) / 100.0f);
}

struct Figures {
    double median; ///< of all blocks, microseconds
    double worst;
    int worstBlock;
};

Figures measure(const host::PluginLibrary& library, const Event& event)
{
    std::vector<double> best(kBlocks, std::numeric_limits<double>::infinity());
    for (int repeat = 0; repeat < kRepeats; ++repeat) {
        host::LoadedPlugin plugin(library);
        plugin.start({.sampleRate = 48000.0, .blockSize = kFrames});
        std::array<float, kFrames> in{}, left{}, right{};
        float* ins[] = {in.data(), in.data(), in.data(), in.data()};
        float* outs[] = {left.data(), right.data()};
        for (int block = 0; block < kBlocks; ++block) {
            for (int i = 0; i < kFrames; ++i)
                in[static_cast<unsigned>(i)] =
                    0.3f * std::sin(0.1f * static_cast<float>(block * kFrames + i));
            if (block >= kWarmBlocks && block % kEventEvery == 0) event(plugin, block / kEventEvery);
            const auto start = Clock::now();
            plugin.process(ins, outs, kFrames);
            const std::chrono::duration<double, std::micro> time = Clock::now() - start;
            double& kept = best[static_cast<unsigned>(block)];
            kept = std::min(kept, time.count());
        }
    }
    best.erase(best.begin(), best.begin() + kWarmBlocks); // a first run through cold code
    const auto worst = std::max_element(best.begin(), best.end());
    const auto middle = static_cast<std::ptrdiff_t>(best.size() / 2);
    Figures figures{0.0, *worst, static_cast<int>(worst - best.begin()) + kWarmBlocks};
    std::nth_element(best.begin(), best.begin() + middle, best.end());
    figures.median = best[static_cast<unsigned>(middle)];
    return figures;
}

void print(const host::PluginLibrary& library, const char* name, const Event& event)
{
    const Figures f = measure(library, event);
    std::printf("%-34s %8.2f us %8.2f us %6.1f   block %d%s\n", name, f.median, f.worst, f.worst / f.median,
                f.worstBlock, f.worstBlock % kEventEvery == 0 ? ", the event's own" : "");
}

void run()
{
    const host::PrivateHome home;
    const host::PluginLibrary library(VELMORA_PLUGIN_PATH);
    std::printf("blocks of %d samples at 48000 Hz, an event every %d blocks\n", kFrames, kEventEvery);
    std::printf("%-34s %11s %11s %6s\n", "event", "median", "worst", "ratio");
    print(library, "none, factory preset 0", [](host::LoadedPlugin&, int) {});
    print(library, "both inserts swapped", swapInserts);
    print(library, "a module moved", reorder);
    print(library, "factory preset of 192 values", loadPreset);
    print(library, "every module knob turned", turnEveryKnob);
}

} // namespace
} // namespace velmora::bench

int main()
{
    velmora::bench::run();
    return 0;
}
