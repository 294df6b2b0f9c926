// What the editor of the built plug-in costs its host: to load, to open, to keep open.
// usage: bench_editor_window [OTHER]     another build of the plug-in whose loading is measured beside

#include "bench/editor/figures.h"
#include "tests/editor/x_client.h"
#include "tests/editor/x_server.h"
#include "tools/host/loaded_plugin.h"
#include "tools/host/private_home.h"

#include <filesystem>

namespace velmora::bench {
namespace {

constexpr int kRounds = 20;
constexpr double kQuietSeconds = 10.0;
constexpr double kIdlesPerSecond = 30.0;

/// From the call until the picture has been handed to the server.
double openingTime(const host::LoadedPlugin& plugin, xcb_window_t window)
{
    const auto start = Clock::now();
    const bool opened =
        plugin.dispatch(vst24::effEditOpen, 0, 0, reinterpret_cast<void*>(std::uintptr_t{window})) != 0;
    plugin.dispatch(vst24::effEditIdle);
    return opened ? millisecondsSince(start) : -1.0;
}

/// A host's process with one instance and a window.
struct Host {
    explicit Host(const std::filesystem::path& path) : library(path), plugin(library) { plugin.start({}); }

    host::PluginLibrary library;
    host::LoadedPlugin plugin;
    test::XClient screen;
    xcb_window_t window = screen.openWindow(0, 0, 1515, 712);
};

double loadingTime(const std::filesystem::path& path)
{
    return medianOfProcesses(kRounds, [&] {
        const auto start = Clock::now();
        const host::PluginLibrary library(path);
        return std::vector{millisecondsSince(start)};
    });
}

void measureLoading(const std::filesystem::path& path, const char* name)
{
    row((std::string("size of ") + name + ", MB").c_str(), "%.1f",
        static_cast<double>(std::filesystem::file_size(path)) / 1e6);
    row((std::string("loading ") + name + ", ms").c_str(), "%.2f", loadingTime(path));
}

void measureOpening(const std::filesystem::path& path)
{
    row("first open in a process, ms", "%.1f", medianOfProcesses(kRounds, [&] {
            Host host(path);
            return std::vector{openingTime(host.plugin, host.window)};
        }));
    row("later opens, ms", "%.1f", median(inProcess([&] {
            Host host(path);
            openingTime(host.plugin, host.window);
            std::vector<double> times;
            for (int i = 0; i < kRounds; ++i) {
                host.plugin.dispatch(vst24::effEditClose);
                times.push_back(openingTime(host.plugin, host.window));
            }
            return times;
        })));
}

void measureStandingOpen(const std::filesystem::path& path)
{
    const std::vector<double> figures = inProcess([&] {
        Host host(path);
        const double before = privateMegabytes();
        openingTime(host.plugin, host.window);
        const double after = privateMegabytes();
        const auto idle = [&] { host.plugin.dispatch(vst24::effEditIdle); };
        shareOfCore(kIdlesPerSecond, 1.0, idle);
        const double bare = shareOfCore(kIdlesPerSecond, kQuietSeconds, [] {});
        return std::vector{after - before, bare, shareOfCore(kIdlesPerSecond, kQuietSeconds, idle)};
    });
    if (figures.size() != 3) return;
    row("memory of an open window, MB", "%.1f", figures[0]);
    row("a loop that does nothing 30 times a second, % of a core", "%.2f", figures[1]);
    row("the same with a quiet window, % of a core", "%.2f", figures[2]);
}

} // namespace
} // namespace velmora::bench

int main(int argc, char** argv)
{
    using namespace velmora;
    const test::XServer server;
    if (!server.isRunning()) {
        std::fputs("bench_editor_window: there is no Xvfb\n", stderr);
        return 1;
    }
    const host::PrivateHome home;
    std::puts("| editor in a host | |\n|---|--:|");
    bench::measureLoading(VELMORA_PLUGIN_PATH, "the plug-in");
    if (argc > 1) bench::measureLoading(argv[1], "the other one");
    bench::measureOpening(VELMORA_PLUGIN_PATH);
    bench::measureStandingOpen(VELMORA_PLUGIN_PATH);
    return 0;
}
