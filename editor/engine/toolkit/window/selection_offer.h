#pragma once

#include "editor/engine/toolkit/window/x11_connection.h"

#include <string>
#include <vector>

namespace velmora::Qorvane {

/// One selection (clipboard or primary) as its owner: what other programs may fetch from us.
class SelectionOffer {
public:
    SelectionOffer(X11Connection& connection, xcb_window_t window, xcb_atom_t selection)
        : connection_(connection), window_(window), selection_(selection)
    {
    }

    xcb_atom_t selection() const { return selection_; }
    bool owned() const { return owned_; }
    const std::string& text() const { return text_; }

    /// @param time of the user's deed that led here, or XCB_CURRENT_TIME
    void offer(const std::string& text, xcb_timestamp_t time);
    /// @return true if the event was about this selection
    bool handle(const xcb_generic_event_t& event);

private:
    bool take(xcb_timestamp_t time);
    void serve(const xcb_selection_request_event_t& request);
    bool write(const xcb_selection_request_event_t& request, xcb_atom_t property);
    bool writeBytes(xcb_window_t requestor, xcb_atom_t property, xcb_atom_t type, const std::string& bytes);

    X11Connection& connection_;
    xcb_window_t window_;
    xcb_atom_t selection_;
    std::string text_;
    bool owned_ = false;
    xcb_timestamp_t since_ = XCB_CURRENT_TIME;
    unsigned takenBy_ = 0; ///< number of the request
};

} // namespace velmora::Qorvane
