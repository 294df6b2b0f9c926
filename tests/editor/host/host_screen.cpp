#include "tests/editor/host/host_screen.h"

#include <algorithm>

namespace velmora::test {

HostScreen::HostScreen()
{
    if (server_.isRunning()) client_ = std::make_unique<XClient>();
}

xcb_window_t HostScreen::childOf(xcb_window_t window)
{
    const std::unique_ptr<xcb_query_tree_reply_t, FreeMemory> tree(
        xcb_query_tree_reply(client_->get(), xcb_query_tree(client_->get(), window), nullptr));
    if (!tree || tree->children_len == 0) return XCB_NONE;
    return xcb_query_tree_children(tree.get())[tree->children_len - 1];
}

std::optional<std::vector<int>> HostScreen::sizeOf(xcb_window_t window)
{
    const std::unique_ptr<xcb_get_geometry_reply_t, FreeMemory> place(
        xcb_get_geometry_reply(client_->get(), xcb_get_geometry(client_->get(), window), nullptr));
    if (!place) return std::nullopt;
    return std::vector<int>{place->width, place->height};
}

std::vector<std::uint32_t> HostScreen::look(xcb_window_t window)
{
    std::vector<std::uint32_t> colours;
    for (const int x : {3, 400, 757, 1100, 1467, 1511})
        for (const int y : {3, 60, 350, 690, 708}) colours.push_back(client_->pixelAt(window, x, y));
    return colours;
}

bool HostScreen::showsPicture(xcb_window_t window)
{
    constexpr std::uint32_t kNone = ~0U; // there was no pixel to be had
    const std::vector<std::uint32_t> colours = look(window);
    const auto drawn = [](std::uint32_t colour) { return colour != 0; };
    return std::ranges::count(colours, kNone) == 0 && std::ranges::any_of(colours, drawn);
}

bool openEditor(const host::LoadedPlugin& plugin, std::uintptr_t window)
{
    return plugin.dispatch(vst24::effEditOpen, 0, 0, reinterpret_cast<void*>(window)) != 0;
}

void closeEditor(const host::LoadedPlugin& plugin)
{
    plugin.dispatch(vst24::effEditClose);
}

void idleEditor(const host::LoadedPlugin& plugin)
{
    plugin.dispatch(vst24::effEditIdle);
}

bool soundPasses(host::LoadedPlugin& plugin)
{
    const Signal input(512, 0.25);
    const PluginOutput output = runPlugin(plugin, input);
    return std::ranges::any_of(output.left, [](double sample) { return sample != 0.0; });
}

} // namespace velmora::test
