#pragma once

#include "tools/host/loaded_plugin.h"

#include <memory>

#include <xcb/xcb.h>

namespace velmora::test {

/// The plug-in's side of a small host program with one window: `HOST PLUGIN`.
class SmallHost {
public:
    static constexpr int kIdleMilliseconds = 33;
    static constexpr int kShownMilliseconds = 2000;
    enum Failure { kNoWindow = 10, kRefused, kBlank };

    SmallHost(int argc, char** argv) : library(std::make_unique<host::PluginLibrary>(argc > 1 ? argv[1] : ""))
    {
        plugin = std::make_unique<host::LoadedPlugin>(*library);
        plugin->start({});
        plugin->dispatch(vst24::effEditGetRect, 0, 0, &rect);
    }

    int width() const { return rect->right; }
    int height() const { return rect->bottom; }

    bool open(std::uintptr_t id)
    {
        window = static_cast<xcb_window_t>(id);
        return plugin->dispatch(vst24::effEditOpen, 0, 0, reinterpret_cast<void*>(id)) != 0;
    }
    void idle() const { plugin->dispatch(vst24::effEditIdle); }
    void close() const { plugin->dispatch(vst24::effEditClose); }
    void unload()
    {
        plugin.reset();
        library.reset();
    }

    /// Whether the editor's own window shows more than one colour.
    bool showsPicture() const;

private:
    std::unique_ptr<host::PluginLibrary> library;
    std::unique_ptr<host::LoadedPlugin> plugin;
    vst24::ERect* rect = nullptr;
    xcb_window_t window = 0;
};

} // namespace velmora::test
