// Writes the seed corpus: for each fuzz target a folder of inputs as the product itself makes them.

#include "host/vst24/vst24_effect_wrapper.h"
#include "params/catalogue.h"
#include "presets/preset_file.h"
#include "presets/preset_library.h"
#include "tools/host/private_home.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace velmora::fuzz {
namespace {

namespace files = std::filesystem;
using Bytes = std::vector<std::uint8_t>;

constexpr std::uint32_t kPresetSeeds = 3;
constexpr int kTextSteps = 4; ///< shown texts of a parameter, evenly over its range

Bytes bytesOf(std::string_view text)
{
    return {text.begin(), text.end()};
}

/// Adds numbered files to a target's folder.
class SeedFolder {
public:
    SeedFolder(const files::path& root, std::string_view target) : folder_(root / target)
    {
        files::create_directories(folder_);
    }
    void add(const Bytes& bytes)
    {
        std::ofstream file(folder_ / ("seed-" + std::to_string(count_++)), std::ios::binary);
        file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
        if (!file.flush()) throw std::runtime_error("can't write to " + folder_.string());
    }

private:
    files::path folder_;
    int count_ = 0;
};

std::intptr_t quietHost(vst24::AEffect*, std::int32_t opcode, std::int32_t, std::intptr_t, void*, float)
{
    return opcode == vst24::audioMasterVersion ? vst24::kVstVersion : 0;
}

void addChunks(SeedFolder seeds)
{
    vst24::QORVST24EffectWrapper strip(quietHost);
    for (std::uint32_t i = 0; i < kPresetSeeds; ++i) {
        const Preset preset = makeFactoryPreset(i);
        for (ParameterId id = 0; id < kHostParameterCount; ++id)
            strip.setParameter(id, preset.values[static_cast<std::size_t>(id)]);
        void* data = nullptr;
        const std::int32_t size = strip.getChunk(&data, false);
        const auto* bytes = static_cast<const std::uint8_t*>(data);
        seeds.add({bytes, bytes + size});
    }
}

void addPresets(SeedFolder fileSeeds, SeedFolder clipboardSeeds)
{
    for (std::uint32_t i = 0; i < kPresetSeeds; ++i) {
        const Bytes block = writePresetBlock(makeFactoryPreset(i));
        clipboardSeeds.add(block);
        Bytes withSwapMode{static_cast<std::uint8_t>(i & 1)};
        withSwapMode.insert(withSwapMode.end(), block.begin(), block.end());
        fileSeeds.add(withSwapMode);
    }
}

void addSettings(SeedFolder seeds)
{
    using namespace std::string_view_literals;
    for (const std::string_view text :
         {"Zoom\0\0\0\x80\x3e"sv, "Hints\0\0\0\x80\x7f"sv, "../x\0abcd"sv, "a/b\0"sv, "..\0\1"sv, "Name"sv})
        seeds.add(bytesOf(text));
}

// One text of each kind of display is enough: the fuzzer chooses parameters by the first two bytes.
void addTexts(SeedFolder seeds)
{
    std::set<std::string> seen;
    for (ParameterId id = 0; id < kHostParameterCount; ++id)
        for (int step = 0; step <= kTextSteps; ++step) {
            const std::string text = parameterDisplay(id, static_cast<double>(step) / kTextSteps);
            if (text.empty() || !seen.insert(text).second) continue;
            Bytes seed{static_cast<std::uint8_t>(id), static_cast<std::uint8_t>(id >> 8)};
            seed.insert(seed.end(), text.begin(), text.end());
            seeds.add(seed);
        }
}

void addAutomation(SeedFolder seeds)
{
    seeds.add(bytesOf("time,name,text\n0,Mstr:Gain,-6\n# a comment\n1.5,\"Mstr:Gain\",\"0\"\n"));
    std::string all;
    for (ParameterId id = 0; id < kHostParameterCount; id += 7)
        all += std::to_string(id * 0.01) + "," + parameterName(id) + "," + parameterDisplay(id, 0.5) + "\n";
    seeds.add(bytesOf(all));
    seeds.add(bytesOf("1e308,InsX:Type,Marlow\r\n-1,a,b\nnan,,\n\"0\",\"InsX:Prm01\",\"1\"\"\""));
}

void makeSeeds(const files::path& root)
{
    const host::PrivateHome home;
    addChunks({root, "chunk"});
    addPresets({root, "preset_file"}, {root, "clipboard"});
    addSettings({root, "settings"});
    addTexts({root, "parameter_text"});
    addAutomation({root, "automation_csv"});
}

} // namespace
} // namespace velmora::fuzz

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::cerr << "usage: velmora-fuzz-seeds FOLDER\n";
        return 2;
    }
    try {
        velmora::fuzz::makeSeeds(argv[1]);
    } catch (const std::exception& error) {
        std::cerr << "velmora-fuzz-seeds: " << error.what() << "\n";
        return 1;
    }
    return 0;
}
