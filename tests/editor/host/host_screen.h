#pragma once

#include "tests/editor/host/patience.h"
#include "tests/editor/x_client.h"
#include "tests/editor/x_server.h"
#include "tests/support/plugin_host.h"

#include <memory>
#include <optional>
#include <vector>

namespace velmora::test {

/// A host's side of the screen: a display server of its own, and windows for the editor. There is no window
/// manager.
class HostScreen {
public:
    HostScreen();

    bool isReady() const { return server_.isRunning() && client_ && client_->isConnected(); }
    XServer& server() { return server_; }
    XClient& client() { return *client_; }
    /// A black window that the editor fits in.
    xcb_window_t openWindow() { return client_->openWindow(0, 0, kWidth, kHeight); }
    /// The window that lies in a host's window, or none.
    xcb_window_t childOf(xcb_window_t window);
    /// Width and height; nothing if there is no such window.
    std::optional<std::vector<int>> sizeOf(xcb_window_t window);
    /// What a window shows at a few places.
    std::vector<std::uint32_t> look(xcb_window_t window);
    /// Whether something was drawn into a window of the host's.
    bool showsPicture(xcb_window_t window);

    static constexpr int kWidth = 1515, kHeight = 712; ///< of the whole editor

private:
    XServer server_;
    std::unique_ptr<XClient> client_;
};

/// @return the plug-in's answer to a window as hosts hand it over
bool openEditor(const host::LoadedPlugin& plugin, std::uintptr_t window);
void closeEditor(const host::LoadedPlugin& plugin);
void idleEditor(const host::LoadedPlugin& plugin);
/// Runs a little audio. @return whether it comes out
bool soundPasses(host::LoadedPlugin& plugin);

} // namespace velmora::test
