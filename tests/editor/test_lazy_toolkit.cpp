#include "tests/support/program.h"

#include <cstdio>
#include <dlfcn.h>
#include <fstream>
#include <gtest/gtest.h>
#include <malloc.h>
#include <set>
#include <sstream>
#include <string>

namespace velmora {
namespace {

constexpr const char* kSample = VELMORA_TOOLKIT_SAMPLE;

/// Loads the sample as a host loads a plug-in, draws, and takes it out of memory.
int drawOnce()
{
    void* const library = dlopen(kSample, RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) return -1;
    const auto draw = reinterpret_cast<int (*)()>(dlsym(library, "drawSample"));
    const int inked = draw != nullptr ? draw() : -1;
    dlclose(library);
    return inked;
}

bool isMapped(const std::string& name)
{
    std::ifstream maps("/proc/self/maps");
    for (std::string line; std::getline(maps, line);)
        if (line.find(name) != std::string::npos) return true;
    return false;
}

long ownBytes()
{
    const auto memory = mallinfo2();
    return static_cast<long>(memory.uordblks + memory.hblkhd);
}

TEST(LazyToolkit, OpensTheLibrariesAtTheFirstUseAndPinsThem)
{
    void* const library = dlopen(kSample, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(library, nullptr) << dlerror();
    EXPECT_FALSE(isMapped("libcairo"));
    EXPECT_FALSE(isMapped("libpango"));
    EXPECT_FALSE(isMapped("libxcb"));
    dlclose(library);
    EXPECT_FALSE(isMapped("toolkit_sample"));

    EXPECT_GT(drawOnce(), 1000);
    EXPECT_FALSE(isMapped("toolkit_sample"));
    EXPECT_TRUE(isMapped("libcairo"));
    EXPECT_TRUE(isMapped("libpango"));
}

TEST(LazyToolkit, LeaksNothingOverManyLoads)
{
    constexpr int kWarmRounds = 2;
    constexpr int kRounds = 20;
    for (int i = 0; i < kWarmRounds; ++i) drawOnce();
    const long before = ownBytes();
    for (int i = 0; i < kRounds; ++i) ASSERT_GT(drawOnce(), 1000);
    const long grown = (ownBytes() - before) / kRounds;
    std::printf("grows by %ld bytes a load\n", grown);
    EXPECT_LT(grown, 512);
}

/// The dynamic section: what a loader would have to find before the plug-in.
TEST(LazyToolkit, IsntOnTheLinkLine)
{
    const auto dynamic = test::runProgram(VELMORA_READELF, {"--dynamic", "--wide", kSample});
    ASSERT_EQ(dynamic.status, 0) << dynamic.err;
    std::istringstream lines(dynamic.out);
    const std::set<std::string> allowed{
        "libc.so.6",  "libm.so.6",      "ld-linux-x86-64.so.2", "ld-linux-aarch64.so.1",
        "libdl.so.2", "libpthread.so.0"};
    int needed = 0;
    for (std::string line; std::getline(lines, line);) {
        if (line.find("(NEEDED)") == std::string::npos) continue;
        const std::string name = line.substr(line.find('[') + 1, line.find(']') - line.find('[') - 1);
        EXPECT_TRUE(allowed.contains(name)) << name;
        ++needed;
    }
    EXPECT_GT(needed, 0);

    const auto symbols = test::runProgram(VELMORA_READELF, {"--dyn-syms", "--wide", kSample});
    for (const char* const prefix : {" cairo_", " pango_", " xcb_", " xkb_", " g_"})
        EXPECT_EQ(symbols.out.find(prefix), std::string::npos) << prefix;
}

} // namespace
} // namespace velmora
