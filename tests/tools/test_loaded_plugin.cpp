#include "tests/support/measure.h"
#include "tests/support/plugin_host.h"
#include "tests/support/program.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <set>
#include <sstream>

// The host library with the built plug-in.

namespace velmora::test {
namespace {

TEST(LoadedPluginTest, ExportsItsEntriesAndNothingElse)
{
    const ProgramResult listing = runProgram("/usr/bin/nm", {"-D", "--defined-only", "-j", pluginPath()});
    ASSERT_EQ(listing.status, 0) << listing.err;
    std::istringstream lines(listing.out);
    std::set<std::string> names;
    for (std::string name; std::getline(lines, name);) names.insert(name.substr(0, name.find('@')));
    EXPECT_EQ(names, (std::set<std::string>{"VSTPluginMain", "main", "InitDll", "ExitDll"}));
}

TEST(LoadedPluginTest, MakesInstancesByItsOldEntryToo)
{
    host::VstHost host;
    const host::VstHost::Construction construction(host);
    const auto entry = reinterpret_cast<vst24::EntryProc>(pluginLibrary().symbol("main"));
    ASSERT_NE(entry, nullptr);
    vst24::AEffect* effect = entry(&host::VstHost::callback);
    ASSERT_NE(effect, nullptr);
    EXPECT_EQ(effect->magic, vst24::kEffectMagic);
    effect->dispatcher(effect, vst24::effClose, 0, 0, nullptr, 0.0f);
}

TEST(LoadedPluginTest, LoadsAndUnloadsAHundredTimes)
{
    privateHome();
    const Signal input = noise(256);
    for (int round = 0; round < 100; ++round) {
        const host::PluginLibrary library(pluginPath());
        host::LoadedPlugin first(library);
        host::LoadedPlugin second(library);
        first.start({48000.0, 64, true});
        ASSERT_EQ(first.chunk().size(), 19209u);
        ASSERT_TRUE(allFinite(runPlugin(first, input).left));
    }
}

// A copy of its own, so that no other test keeps it in memory.
TEST(LoadedPluginTest, LeavesMemoryWhenUnloaded)
{
    privateHome();
    const TemporaryFolder folder;
    const std::string copy = folder.file("velmora_mono.so");
    std::filesystem::copy_file(pluginPath(), copy);
    {
        const host::PluginLibrary library(copy);
        host::LoadedPlugin plugin(library);
        plugin.start({});
        void* const again = dlopen(copy.c_str(), RTLD_NOW | RTLD_NOLOAD);
        ASSERT_NE(again, nullptr);
        dlclose(again);
    }
    EXPECT_EQ(dlopen(copy.c_str(), RTLD_NOW | RTLD_NOLOAD), nullptr);
}

TEST(LoadedPluginTest, RefusesAHostWithoutVersion)
{
    host::VstHost old;
    old.vstVersion = 0;
    const host::VstHost::Construction construction(old);
    EXPECT_EQ(pluginLibrary().entry()(&host::VstHost::callback), nullptr);
}

// Any cut at multiples of the strip's inner block gives the same samples, in both precisions.
TEST(LoadedPluginTest, GivesTheSameForEverySplitAtMultiplesOf64)
{
    const Signal input = noise(64 * 100, 0.5);
    const Signal key = noise(64 * 100, 0.5, 2);
    const std::array<int, 4> uneven{64, 640, 128, 1984};
    const std::array<int, 1> even{64};
    for (const bool doublePrecision : {false, true}) {
        RunningPlugin a({96000.0, 2048, doublePrecision});
        RunningPlugin b({96000.0, 2048, doublePrecision});
        const PluginOutput first = runPlugin(a, input, key, uneven, doublePrecision);
        const PluginOutput second = runPlugin(b, input, key, even, doublePrecision);
        EXPECT_EQ(maxDifference(first.left, second.left), 0.0);
        EXPECT_EQ(maxDifference(first.left, first.right), 0.0);
    }
}

} // namespace
} // namespace velmora::test
