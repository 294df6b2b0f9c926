#include "tests/support/plugin_host.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <iostream>

#include <malloc.h>

namespace velmora::test {
namespace {

// The object brings a C++ runtime of its own, with memory of its own.
TEST(Unload, LeavesNoMemoryBehind)
{
    privateHome();
    const auto rounds = [](int count) {
        for (int round = 0; round < count; ++round) {
            const host::PluginLibrary library(pluginPath());
            host::LoadedPlugin plugin(library);
            plugin.start({});
        }
        return static_cast<std::ptrdiff_t>(mallinfo2().uordblks);
    };
    constexpr int kRounds = 50;
    const std::ptrdiff_t settled = rounds(2 * kRounds); // the allocator's caches fill by then
    const std::ptrdiff_t growth = rounds(kRounds) - settled;
    std::cout << growth << " bytes more behind " << kRounds << " rounds\n";
    EXPECT_LT(growth, kRounds * 100);
}

} // namespace
} // namespace velmora::test
