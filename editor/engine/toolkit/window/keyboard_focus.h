#pragma once

#include "editor/engine/toolkit/window/x11_connection.h"

namespace velmora::Qorvane {

/// Who has the keyboard. Without it we don't even ask for key events: they go to the host's windows, as if
/// ours weren't there.
class KeyboardFocus {
public:
    /// @param events what the window always asks for
    KeyboardFocus(X11Connection& connection, xcb_window_t window, xcb_window_t parent, std::uint32_t events)
        : connection_(connection), window_(window), parent_(parent), events_(events), formerOwner_(parent)
    {
    }

    bool held() const { return held_; }
    void take();
    void giveBack();
    /// @return true if the event says that the keyboard has been lost
    bool isLoss(const xcb_generic_event_t& event) const;
    void lose();

private:
    void askForKeys(bool wanted);
    Reply<xcb_get_input_focus_reply_t> owner();
    xcb_void_cookie_t setOwner(xcb_window_t window);

    X11Connection& connection_;
    xcb_window_t window_, parent_;
    std::uint32_t events_;
    xcb_window_t formerOwner_;
    bool held_ = false;
    unsigned takenBy_ = 0; ///< number of the request
};

} // namespace velmora::Qorvane
