#pragma once

#include <cstdint>
#include <cstdlib>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include <xcb/xcb.h>

namespace velmora::test {

struct FreeMemory {
    void operator()(void* memory) const { std::free(memory); }
};
using XEvent = std::unique_ptr<xcb_generic_event_t, FreeMemory>;

/// Another program on the display: a host with its windows, a user's hands, an owner of the clipboard.
class XClient {
public:
    XClient();
    XClient(const XClient&) = delete;
    XClient& operator=(const XClient&) = delete;
    ~XClient();

    bool isConnected() const { return xcb_connection_has_error(connection_) == 0; }
    xcb_connection_t* get() const { return connection_; }
    /// A black window on the screen, mapped. It is told of keys and properties.
    /// @param alpha with a depth of 32
    xcb_window_t openWindow(int x, int y, int width, int height, bool alpha = false);
    void closeWindow(xcb_window_t window);
    xcb_atom_t atom(const std::string& name);
    /// Returns once the server has done what was asked.
    void sync();
    /// The next event of a type within two seconds, or null; others before it are dropped.
    /// @param meanwhile what the other programs do
    XEvent await(
        std::uint8_t type, const std::function<void()>& meanwhile = [] {});

    /// Colour without alpha of what a window shows.
    std::uint32_t pixelAt(xcb_window_t window, int x, int y);
    int childCount(xcb_window_t window);
    /// The bytes of a property, which is removed; nothing if there is none.
    std::optional<std::string> takeProperty(xcb_window_t window, xcb_atom_t property);

    void movePointer(int x, int y);
    void button(int number, bool down);
    void click(int number, int times = 1);
    void key(int code, bool down);
    /// Down and up, with another key held if one is named.
    void type(int code, int held = 0);

    xcb_window_t focus();
    void setFocus(xcb_window_t window);

    void own(xcb_window_t window, xcb_atom_t selection);
    /// Asks the owner and waits for the bytes; nothing if it refuses.
    std::optional<std::string> fetch(xcb_window_t window, xcb_atom_t selection, const std::string& target,
                                     const std::function<void()>& meanwhile);
    void write(xcb_window_t window, xcb_atom_t property, xcb_atom_t type, const std::string& bytes);
    void answer(const xcb_selection_request_event_t& request, xcb_atom_t property);

private:
    xcb_visualid_t alphaVisual() const;
    void input(std::uint8_t type, int detail, int x = 0, int y = 0);

    xcb_connection_t* connection_;
    const xcb_screen_t* screen_ = nullptr;
};

} // namespace velmora::test
