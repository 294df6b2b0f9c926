#include "tests/support/plugin_host.h"

#include <algorithm>
#include <cstdlib>

namespace velmora::test {

namespace {

template <typename Sample>
PluginOutput runAs(host::LoadedPlugin& plugin, const Signal& input, const Signal& sideChain,
                   std::span<const int> blocks)
{
    const std::size_t frames = input.size();
    std::vector<Sample> main(input.begin(), input.end());
    std::vector<Sample> key(sideChain.begin(), sideChain.end());
    key.resize(frames);
    std::vector<Sample> left(frames);
    std::vector<Sample> right(frames);

    std::size_t position = 0;
    for (std::size_t call = 0; position < frames; ++call) {
        const std::size_t length =
            std::min(static_cast<std::size_t>(blocks[call % blocks.size()]), frames - position);
        Sample* in[4] = {&main[position], &main[position], &key[position], &key[position]};
        Sample* out[2] = {&left[position], &right[position]};
        plugin.process(in, out, static_cast<std::int32_t>(length));
        position += length;
    }
    return {Signal(left.begin(), left.end()), Signal(right.begin(), right.end())};
}

} // namespace

std::filesystem::path pluginPath()
{
    const char* named = std::getenv("VELMORA_PLUGIN");
    return named ? named : VELMORA_PLUGIN_PATH;
}

const host::PrivateHome& privateHome()
{
    static const host::PrivateHome home;
    return home;
}

const host::PluginLibrary& pluginLibrary()
{
    privateHome();
    static const host::PluginLibrary library(pluginPath());
    return library;
}

RunningPlugin::RunningPlugin(const host::RunSettings& settings) : LoadedPlugin(pluginLibrary())
{
    start(settings);
}

PluginOutput runPlugin(host::LoadedPlugin& plugin, const Signal& input, const Signal& sideChain,
                       std::span<const int> blocks, bool doublePrecision)
{
    return doublePrecision ? runAs<double>(plugin, input, sideChain, blocks)
                           : runAs<float>(plugin, input, sideChain, blocks);
}

PluginOutput runPlugin(host::LoadedPlugin& plugin, const Signal& input, int block)
{
    return runPlugin(plugin, input, {}, {&block, 1}, true);
}

} // namespace velmora::test
