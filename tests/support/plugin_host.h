#pragma once

#include "tests/support/signals.h"
#include "tools/host/loaded_plugin.h"
#include "tools/host/private_home.h"

#include <filesystem>
#include <span>

/// The built plug-in in a host of its own, for tests that reach it by its VST interface alone.
namespace velmora::test {

/// Where the built plug-in lies: the environment's VELMORA_PLUGIN, else the build's.
std::filesystem::path pluginPath();

/// Made at the first call and kept to the program's end, so that no test touches the user's folders.
const host::PrivateHome& privateHome();

/// The library, loaded at the first call and kept to the program's end, with a private home.
const host::PluginLibrary& pluginLibrary();

/// An instance of the built plug-in, opened and running.
class RunningPlugin : public host::LoadedPlugin {
public:
    explicit RunningPlugin(const host::RunSettings& settings = {});
};

/// What a run gave on the two outputs.
struct PluginOutput {
    Signal left;
    Signal right;
};

/// Runs a signal through in one precision.
/// @param sideChain empty for silence, else at least as long as `input`
/// @param blocks lengths of the process calls, gone through again and again; all above 0
PluginOutput runPlugin(host::LoadedPlugin& plugin, const Signal& input, const Signal& sideChain,
                       std::span<const int> blocks, bool doublePrecision);

/// The same in double precision and equal blocks.
PluginOutput runPlugin(host::LoadedPlugin& plugin, const Signal& input, int block = 64);

} // namespace velmora::test
