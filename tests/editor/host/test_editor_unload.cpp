#include "tests/editor/host/host_screen.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <fstream>
#include <iostream>
#include <set>

#include <dlfcn.h>
#include <link.h>
#include <malloc.h>

namespace velmora::test {
namespace {

std::ptrdiff_t entriesOf(const std::filesystem::path& folder)
{
    return std::distance(std::filesystem::directory_iterator(folder), {});
}

/// Lines of a file of the kernel's that have a word in them.
std::ptrdiff_t linesWith(const char* file, std::string_view word)
{
    std::ifstream in(file);
    std::ptrdiff_t lines = 0;
    for (std::string line; std::getline(in, line);) lines += line.find(word) != std::string::npos ? 1 : 0;
    return lines;
}

bool isMapped(std::string_view library)
{
    return linesWith("/proc/self/maps", library) > 0;
}

/// The libraries that the loader fetches with an object.
std::set<std::string> neededBy(const std::filesystem::path& object)
{
    void* const handle = dlopen(object.c_str(), RTLD_NOW | RTLD_LOCAL);
    link_map* map = nullptr;
    if (handle == nullptr || dlinfo(handle, RTLD_DI_LINKMAP, &map) != 0) return {"it can't be loaded"};
    const char* names = nullptr;
    for (const ElfW(Dyn)* entry = map->l_ld; entry->d_tag != DT_NULL; ++entry)
        if (entry->d_tag == DT_STRTAB) names = reinterpret_cast<const char*>(entry->d_un.d_ptr);
    std::set<std::string> needed;
    for (const ElfW(Dyn)* entry = map->l_ld; entry->d_tag != DT_NULL; ++entry)
        if (entry->d_tag == DT_NEEDED) needed.insert(names + entry->d_un.d_val);
    dlclose(handle);
    return needed;
}

TEST(EditorUnload, LoadsTheToolkitAtTheFirstOpenOnly)
{
    const std::set<std::string> system{"libc.so.6", "libm.so.6", "ld-linux-x86-64.so.2",
                                       "ld-linux-aarch64.so.1"};
    for (const std::string& name : neededBy(pluginPath())) EXPECT_TRUE(system.contains(name)) << name;

    privateHome();
    const host::PluginLibrary library(pluginPath());
    host::LoadedPlugin plugin(library);
    vst24::ERect* rect = nullptr;
    EXPECT_NE(plugin.dispatch(vst24::effEditGetRect, 0, 0, &rect), 0);
    for (const char* name : {"libcairo", "libpango", "libfontconfig", "libX11", "libxkbcommon"})
        EXPECT_FALSE(isMapped(name)) << name;
}

/// What a process holds that a plug-in could leave behind.
struct Holdings {
    std::ptrdiff_t memory = static_cast<std::ptrdiff_t>(mallinfo2().uordblks);
    std::ptrdiff_t files = entriesOf("/proc/self/fd");
    std::ptrdiff_t maps = linesWith("/proc/self/maps", "");
    std::ptrdiff_t pixels = linesWith("/proc/self/maps", "velmora-pixels");
    std::ptrdiff_t segments = linesWith("/proc/sysvipc/shm", "");
};

/// One life of the library: loaded, used with its editor, unloaded.
void useOnce(HostScreen& screen, xcb_window_t window)
{
    const host::PluginLibrary library(pluginPath());
    host::LoadedPlugin plugin(library);
    plugin.start({});
    ASSERT_TRUE(openEditor(plugin, window));
    EXPECT_TRUE(comesTrue([&] {
        idleEditor(plugin);
        return screen.showsPicture(window);
    }));
    closeEditor(plugin);
    EXPECT_TRUE(openEditor(plugin, window)); // and the instance goes with it open
    idleEditor(plugin);
}

TEST(EditorUnload, LeavesNothingBehindAndKeepsTheToolkit)
{
    privateHome();
    HostScreen screen;
    ASSERT_TRUE(screen.isReady()) << "no Xvfb";
    const xcb_window_t window = screen.openWindow();

    constexpr int kSettled = 5, kRounds = 20;
    Holdings settled;
    for (int round = 1; round <= kRounds; ++round) {
        useOnce(screen, window);
        ASSERT_EQ(dlopen(pluginPath().c_str(), RTLD_NOW | RTLD_NOLOAD), nullptr) << "it is still there";
        if (round == kSettled) settled = {};
    }
    const Holdings last;
    std::cout << last.memory - settled.memory << " bytes more behind " << kRounds - kSettled << " rounds, "
              << last.maps - settled.maps << " mappings\n";
    EXPECT_LT(last.memory - settled.memory, 16384); // the allocator takes some time to fill its caches
    EXPECT_EQ(last.files, settled.files);
    EXPECT_EQ(last.pixels, 0);
    EXPECT_EQ(last.segments, settled.segments);
    EXPECT_LE(last.maps - settled.maps, 4); // the allocator's
    for (const char* library : {"libcairo.so.2", "libpango-1.0.so.0", "libfontconfig.so.1", "libxcb.so.1"})
        EXPECT_TRUE(isMapped(library)) << library;
}

} // namespace
} // namespace velmora::test
